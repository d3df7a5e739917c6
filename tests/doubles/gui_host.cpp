// A host with Qt, which opens the library while it runs. Carries out its arguments in order, in another
// thread if in capitals: "own" and "gui" make an application object, with widgets or without; "window" shows
// a window; "open=FILE" and "close" load and unload the library; "edit" opens the editor; "deaf" has the
// system reap all children; "state" prints whose application object there is, the locale, whether X has
// another error handler, and whether more files are open than the last time; "!COMMAND" is for the shell;
// others are names for StyleAtlasSetApplication. A timer closes every dialog, and prints each message box.
#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <cctype>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <dlfcn.h>
#include <filesystem>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

// No process may be signalled by its number.
extern "C" [[gnu::visibility("default")]] int kill(pid_t, int) noexcept
{
    std::puts("kill");
    return 0;
}

// Nor may one crash, which the desktop would tell the user.
extern "C" [[gnu::visibility("default"), noreturn]] void abort() noexcept
{
    sigqueue(getppid(), SIGUSR1, {});
    _exit(EXIT_FAILURE);
}

namespace
{

using XHandler = int (*)(void*, void*);

void* library = nullptr;
const QCoreApplication* own = nullptr;
QPointer<QWidget> dialog;

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
        const bool isDark = box->palette().color(QPalette::Window).lightness() < 128;
        const bool isPlain = box->textFormat() == Qt::PlainText && !isDark;
        std::printf("%sbox: %s\n", isPlain ? "" : "dark or formatted ", qPrintable(box->text()));
        box->button(QMessageBox::Ok)->click();
    } else {
        dialog = window;
        window->close();
    }
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
    const auto files = std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
    static auto before = files;
    std::printf("%s %s%s%s\n", whose, std::setlocale(LC_ALL, nullptr), isHandled ? " handled" : "",
                present == nullptr && std::exchange(before, files) < files ? " with open files" : "");
}

void Call(std::string call)
{
    std::ranges::transform(call, call.begin(), [](unsigned char letter) { return std::tolower(letter); });
    if (call == "edit") {
        const int result = reinterpret_cast<int (*)(std::uintptr_t)>(dlsym(library, "EditStyleAtlas"))(0);
        std::printf("edit: %d%s\n", result, own == nullptr && !dialog.isNull() ? " and a window left" : "");
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
        if (call == "own") {
            own = new QApplication(argc, argv);
            QApplication::setPalette(QColor(Qt::black));
        } else if (call == "gui")
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
        else if (call.starts_with("locale="))
            std::setlocale(LC_ALL, call.c_str() + 7);
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
