// A host with Qt, which opens the library while it runs. Its arguments are carried out in order: "own" makes
// an application object; "open" and "close" do so with the library; "state" prints who made the application
// object, and the locale; any other is a name for StyleAtlasSetApplication, and one in capitals is given by
// another thread. Somebody reads out each message box and closes it.
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <cctype>
#include <clocale>
#include <cstdio>
#include <dlfcn.h>
#include <string>
#include <thread>
#include <vector>

namespace
{

void CloseBox()
{
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr || !box->isVisible())
        return;
    std::printf("box: %s\n", qPrintable(box->text()));
    box->button(QMessageBox::Ok)->click();
}

void GiveName(void* library, const std::string& name)
{
    std::jthread user([](const std::stop_token& end) {
        for (; !end.stop_requested(); std::this_thread::sleep_for(std::chrono::milliseconds(20))) {
            if (QCoreApplication* const application = QCoreApplication::instance())
                QMetaObject::invokeMethod(application, &CloseBox, Qt::QueuedConnection);
        }
    });
    const std::u16string wide(name.begin(), name.end());
    reinterpret_cast<void (*)(const char16_t*)>(dlsym(library, "StyleAtlasSetApplication"))(wide.c_str());
    std::puts("named");
}

} // namespace

int main(int argc, char** argv)
{
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    void* library = nullptr;
    const QCoreApplication* own = nullptr;
    for (const std::string& call : std::vector<std::string>(argv + 1, argv + argc)) {
        if (call == "own")
            own = new QApplication(argc, argv);
        else if (call == "open")
            library = dlopen("libstyleatlas.so.1", RTLD_NOW);
        else if (call == "close")
            dlclose(library);
        else if (call == "state") {
            const QCoreApplication* const present = QCoreApplication::instance();
            const char* const whose = present == own ? "own" : "the library's";
            std::printf("%s %s\n", present == nullptr ? "none" : whose, std::setlocale(LC_ALL, nullptr));
        } else if (std::isupper(call.front()) != 0)
            std::thread(GiveName, library, call).join();
        else
            GiveName(library, call);
    }
}
