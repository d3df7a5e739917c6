// A host with Qt at hand, which opens the library while it runs. Its arguments are carried out in order:
//   own        makes an application object
//   open       opens the library
//   close      closes it
//   name=TEXT  StyleAtlasSetApplication; whoever looks at a message box meanwhile reads it out and closes it
//   elsewhere=TEXT  the same by another thread
//   state      prints who made the application object, and the locale
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <atomic>
#include <clocale>
#include <cstdio>
#include <dlfcn.h>
#include <string>
#include <thread>

namespace
{

void* library = nullptr;
QApplication* own = nullptr;

void ReadOut()
{
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr || !box->isVisible())
        return;
    std::printf("box: %s\n", qPrintable(box->text()));
    box->button(QMessageBox::Ok)->click();
}

void Name(const std::string& name)
{
    std::atomic<bool> isDone = false;
    std::thread user([&isDone] {
        while (!isDone) {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            if (QCoreApplication* const application = QCoreApplication::instance())
                QMetaObject::invokeMethod(application, &ReadOut, Qt::QueuedConnection);
        }
    });
    const std::u16string wide(name.begin(), name.end());
    reinterpret_cast<void (*)(const char16_t*)>(dlsym(library, "StyleAtlasSetApplication"))(wide.c_str());
    isDone = true;
    user.join();
    std::puts("named");
}

void PrintState()
{
    const QCoreApplication* const present = QCoreApplication::instance();
    const char* const whose = present == own ? "own" : "the library's";
    std::printf("%s %s\n", present == nullptr ? "none" : whose, std::setlocale(LC_ALL, nullptr));
}

} // namespace

int main(int argc, char** argv)
{
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    for (int i = 1; i < argc; ++i) {
        const std::string call = argv[i];
        const std::string name = call.substr(call.find('=') + 1);
        if (call == "own")
            own = new QApplication(argc, argv);
        else if (call == "open")
            library = dlopen("libstyleatlas.so.1", RTLD_NOW);
        else if (call == "close")
            dlclose(library);
        else if (call == "state")
            PrintState();
        else if (call.starts_with("elsewhere="))
            std::thread(Name, name).join();
        else
            Name(name);
    }
    return 0;
}
