// A host with Qt, which opens the library while it runs. Carries out its arguments in order, in another
// thread if in capitals: "own" and "gui" make an application object, with widgets or without; "window" shows
// a window; "open=FILE" and "close" load and unload the library; "edit" opens the editor; "deaf" has the
// system reap all children; "state" prints whose application object there is, the locale, and whether X has
// another error handler; "!COMMAND" is for the shell; others are names for StyleAtlasSetApplication. A timer
// closes every dialog, and prints the text of each message box.
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <cctype>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <dlfcn.h>
#include <string>
#include <thread>
#include <vector>

// No process may be signalled by its number.
extern "C" [[gnu::visibility("default")]] int kill(pid_t, int) noexcept
{
    std::puts("kill");
    return 0;
}

namespace
{

using XHandler = int (*)(void*, void*);

void* library = nullptr;
const QCoreApplication* own = nullptr;

int HandleXError(void* /*display*/, void* /*error*/)
{
    return 0;
}

bool HasXHandler()
{
    static const auto set =
        reinterpret_cast<XHandler (*)(XHandler)>(dlsym(dlopen("libX11.so.6", RTLD_NOW), "XSetErrorHandler"));
    return set(&HandleXError) == &HandleXError;
}

void CloseWindow()
{
    QWidget* const window = QApplication::activeModalWidget();
    if (window == nullptr || !window->isVisible())
        return;
    if (const auto* const box = qobject_cast<QMessageBox*>(window)) {
        std::printf("box: %s\n", qPrintable(box->text()));
        box->button(QMessageBox::Ok)->click();
    } else
        window->close();
}

void Attend()
{
    auto* const timer = new QTimer(QCoreApplication::instance());
    QObject::connect(timer, &QTimer::timeout, &CloseWindow);
    timer->start(20);
}
Q_COREAPP_STARTUP_FUNCTION(Attend)

void PrintState()
{
    const QCoreApplication* const present = QCoreApplication::instance();
    const char* const whose = present == nullptr ? "none" : present == own ? "own" : "the library's";
    const bool isHandled = present == nullptr && !HasXHandler();
    std::printf("%s %s%s\n", whose, std::setlocale(LC_ALL, nullptr), isHandled ? " handled" : "");
}

void Call(std::string call)
{
    std::ranges::transform(call, call.begin(), [](unsigned char letter) { return std::tolower(letter); });
    if (call == "edit") {
        std::printf("edit: %d\n",
                    reinterpret_cast<int (*)(std::uintptr_t)>(dlsym(library, "EditStyleAtlas"))(0));
        return;
    }
    const std::u16string wide(call.begin(), call.end());
    reinterpret_cast<void (*)(const char16_t*)>(dlsym(library, "StyleAtlasSetApplication"))(wide.c_str());
    std::puts("named");
}

} // namespace

int main(int argc, char** argv)
{
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    HasXHandler();
    for (const std::string& call : std::vector<std::string>(argv + 1, argv + argc)) {
        if (call == "own")
            own = new QApplication(argc, argv);
        else if (call == "gui")
            own = new QGuiApplication(argc, argv);
        else if (call == "window") {
            QWidget window;
            window.show();
            QTimer::singleShot(0, &window, &QWidget::close);
            std::printf("window: %d\n", QApplication::exec());
        } else if (call.starts_with("open="))
            library = dlopen(call.c_str() + 5, RTLD_NOW);
        else if (call == "close")
            dlclose(library);
        else if (call == "deaf")
            std::signal(SIGCHLD, SIG_IGN);
        else if (call == "state")
            PrintState();
        else if (call.front() == '!')
            (void)!std::system(call.c_str() + 1);
        else if (std::isupper(call.front()) != 0)
            std::thread(Call, call).join();
        else
            Call(call);
    }
}
