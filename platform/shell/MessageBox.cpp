// Message boxes on the user's display. The source is no member of a library that a linker could leave it out
// of: it installs its hook when the module is loaded, and touches Qt when there is a message.
#include <Application.h>
#include <Contain.h>
#include <MessageBoxHook.h>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPointer>
#include <QScopedValueRollback>
#include <QtConvert.h>
#include <WindowColors.h>
#include <afxwin.h>
#include <algorithm>

namespace
{

constexpr int notShown = 0;

// Qt's platforms without a user, where a box would stay open for ever.
constexpr const char* platformsWithoutUser[] = {"minimal", "offscreen"};

bool isOpen = false;

bool HasUser()
{
    return CanShowWindows() && std::ranges::find(platformsWithoutUser, QGuiApplication::platformName()) ==
                                   std::end(platformsWithoutUser);
}

// The owner may delete the box, which counts as an answer. A box that ends without a clicked button hasn't
// been shown: Qt shows none while the program is quitting.
int Ask(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type)
{
    const QScopedValueRollback opening(isOpen, true);
    const auto icon = (type & MB_ICONEXCLAMATION) != 0 ? QMessageBox::Warning : QMessageBox::NoIcon;
    const QPointer box(new QMessageBox(icon, gdi::ToQString(caption), gdi::ToQString(text), QMessageBox::Ok,
                                       DialogOwner(owner)));
    box->setTextFormat(Qt::PlainText);
    UseWindowColors(*box);
    box->exec();
    const int answer = box.isNull() || box->clickedButton() != nullptr ? IDOK : notShown;
    delete box;
    return answer;
}

// One box at a time: the host runs on while a box is open, and may call the library.
int ShowMessage(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type)
{
    int answer = notShown;
    if (isOpen)
        return answer;
    Contain([&] {
        const ApplicationHolder application(MakingThread::Main);
        if (HasUser())
            answer = Ask(owner, text, caption, type);
    });
    return answer;
}

// Goes when the program ends, before the libraries that a box needs: there are no calls after that.
class Hook
{
public:
    Hook() { SetMessageBoxHook(&ShowMessage); }
    Hook(const Hook&) = delete;
    Hook& operator=(const Hook&) = delete;
    ~Hook() { afxModuleState.m_bEnding = true; }
};

const Hook hook;

} // namespace
