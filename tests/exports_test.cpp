// The library as hosts use it: a program in C that loads it, with the real components or doubles of them.
#include "support/Process.h"
#include "support/TempPrefix.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>

namespace
{

// The leak check stops all threads, and now and then crashes on those of Qt's connection to a display.
constexpr const char* noLeakCheck = "ASAN_OPTIONS=detect_leaks=0";

namespace fs = std::filesystem;

constexpr const char* catalogue = "1; 20; 1; 0; 0; U; voltage\n"
                                  "1; 20; 2; 0; 0; U_rms; voltage, RMS\n"
                                  "0; 30; 0; 0; 0; T; temperature\n";
constexpr const char* get = "get=0,30,0,0,0,0";
const std::string none = "0: 000007 7 7 7 000007 7 7 7\n"; // the answer to a query without a style
const std::string temperature = "1: 000000 2 10 2 000000 0 1 0\n";
const std::string cannotLoad = "Cannot load Mensura.dll\n";
const std::string box = "box: " + cannotLoad + "named\n";
const std::string edited = "box: " + cannotLoad + "edit: 2\n";

class Exports : public testing::Test
{
protected:
    Exports()
    {
        test::WriteWhole(m_catalogue, catalogue);
        m_environment = {"STYLEATLAS_PREFIX=" + m_prefix.Path().string(),
                         "MENSURA_CATALOGUE=" + m_catalogue,
                         "LC_ALL=C.UTF-8",
                         "DISPLAY",
                         "WAYLAND_DISPLAY",
                         "QT_QPA_PLATFORM"};
    }

    test::Outcome Run(std::vector<std::string> calls)
    {
        calls.insert(calls.begin(), m_program);
        return test::Run(calls, m_environment);
    }

    void Expect(const std::vector<std::string>& calls, const std::string& output,
                const std::string& errors = "")
    {
        const test::Outcome outcome = Run(calls);
        EXPECT_EQ(outcome.Output, output);
        EXPECT_EQ(outcome.Errors, errors);
        EXPECT_EQ(outcome.Status, 0);
    }

    // From here on the library is one in a folder where it finds these others alone.
    void Isolate(const std::vector<fs::path>& libraries)
    {
        fs::create_directories(m_isolated);
        fs::copy(LIBRARY_FOLDER "/styleatlas", m_isolated / "styleatlas");
        for (const fs::path& library : libraries)
            fs::copy_file(library, m_isolated / library.filename());
        m_open = "open=" + (m_isolated / fs::path(STYLEATLAS_SONAME).filename()).string();
    }

    test::TempPrefix m_prefix;
    std::string m_catalogue = m_prefix.Path() / "catalogue";
    std::vector<std::string> m_environment;
    fs::path m_isolated = m_prefix.Path() / "isolated";
    std::string m_open = "open=" STYLEATLAS_SONAME;
    std::string m_program = LOADING_HOST;
};

TEST_F(Exports, AreFiveNamesAndNoOther)
{
    EXPECT_EQ(
        test::Run({"nm", "-D", "--defined-only", "--format=just-symbols", STYLEATLAS_LIBRARY}, {}).Output,
        "EditStyleAtlas@@STYLEATLAS_1\nGetStyleAtlas@@STYLEATLAS_1\nReloadStyleAtlas@@STYLEATLAS_1\n"
        "STYLEATLAS_1\nStyleAtlasChangeUserInfo@@STYLEATLAS_1\n"
        "StyleAtlasSetApplication@@STYLEATLAS_1\n");
}

TEST_F(Exports, BringNoWindowsBeforeOneIsWantedAndCanBeUnloadedUntilThen)
{
    const std::string show =
        "!grep -oE 'libQt6|libstyleatlas(-[a-z]+)?[.]' /proc/$PPID/maps | sort -u | xargs echo mapped";
    const std::string mapped = "mapped libstyleatlas-core. libstyleatlas.\n";
    Expect({m_open, "name=Bench", get, "edit", show, "close", show, m_open, get, "name=Bench", get, "close",
            show},
           temperature + "edit: -1\n" + mapped + "mapped\n" + none + temperature + "mapped\n");
    m_environment.emplace_back("DISPLAY=:987"); // which only Qt can find out to be missing
    Expect({m_open, "name=Bench", show, "edit", "close", show},
           mapped + "edit: -1\nmapped libQt6 libstyleatlas-core. libstyleatlas-editor. libstyleatlas.\n");
}

TEST_F(Exports, DoNothingOnceTheirObjectsHaveGone)
{
    Expect({"late", m_open, "name=Bench", get}, temperature + none + "late: -1\n");
}

TEST_F(Exports, AnswerFromTheTableOnceTheHostHasNamedItself)
{
    Expect({m_open, get, "name=Bench", get, "get=1,20,2,0,1,0",
            "get=1,20,9,9,9,9", // answered by the group row of the quantity
            "get=31,30,0,0,0,0", "get=32,30,0,0,0,0", "get=-1,30,0,0,0,0", "get=0,31,0,0,0,0"},
           none + temperature + "1: 002AA5 1 10 1 002AA5 0 1 0\n1: 002AA5 1 10 1 002AA5 0 1 0\n" +
               "1: C0C0C0 2 10 2 C0C0C0 0 1 0\n" + none + none + none);
}

TEST_F(Exports, ReloadTakesInWhatTheUnitLibraryReportsNow)
{
    const std::string first = "1: 000000 1 10 1 000000 0 1 0\n";
    Expect({m_open, "reload", "get=0,20,1,0,1,0"}, first);
    test::WriteWhole(m_catalogue, "0; 77; 0; 0; 0; p; pressure\n");
    Expect({m_open, "reload", "get=0,77,0,0,0,0", "user=S-1|Software", "get=0,20,0,0,0,0"}, first + none);
}

TEST_F(Exports, EndNoHostWithoutUnitLibraryOrDisplay)
{
    Isolate({STYLEATLAS_SONAME, GLOSSA_SONAME});
    const std::string message = "StyleAtlas: " + cannotLoad;
    Expect({m_open, "name=Bench", get, "edit"}, none + "edit: -1\n", message + message + message);
    const std::vector<std::string> usual = m_environment;
    for (const char* const place : {"DISPLAY=:987", "DISPLAY=nowhere.invalid:0", "WAYLAND_DISPLAY=nowhere",
                                    "QT_QPA_PLATFORM=nonsense;xcb", "QT_QPA_PLATFORM=linuxfb"}) {
        m_environment = usual;
        m_environment.emplace_back(place);
        const test::Outcome outcome = Run({m_open, "name=Bench", "edit"});
        EXPECT_EQ(outcome.Status, 0) << place;
        EXPECT_EQ(outcome.Output, "edit: -1\n") << place;
        EXPECT_NE(outcome.Errors.find(cannotLoad), std::string::npos) << place;
    }
    // A display that doesn't answer is waited for once.
    const std::string number = std::to_string(getpid());
    const std::string name = "/tmp/.X11-unix/X" + number;
    sockaddr_un silent{AF_UNIX, {}};
    name.copy(silent.sun_path + 1, name.size()); // no file
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + name.size());
    const int server = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(bind(server, reinterpret_cast<sockaddr*>(&silent), length) | listen(server, 5), 0);
    m_environment.back() = "DISPLAY=:" + number;
    EXPECT_EQ(Run({m_open, "name=Bench", "edit"}).Output, "edit: -1\n");
    close(server);
    fs::remove(m_isolated / "styleatlas/libstyleatlas-editor.so");
    m_environment.back() = "DISPLAY=:987";
    EXPECT_NE(Run({m_open, "edit"}).Errors.find("no window can be shown"), std::string::npos);
}

// Without fonts. The locale stays "C", unless the host's own Qt has set it.
TEST_F(Exports, ShowTheirMessagesOnADisplay)
{
    if (!test::isOnX) {
        EXPECT_EQ(test::FailuresOnX("*OnADisplay"), "");
        return;
    }
    m_program = GUI_HOST;
    Isolate({STYLEATLAS_SONAME, GLOSSA_SONAME});
    m_environment.insert(m_environment.end(), {std::string("DISPLAY=") + std::getenv("DISPLAY"),
                                               "FONTCONFIG_FILE=/dev/null", noLeakCheck});
    const std::pair<std::vector<std::string>, std::string> hosts[] = {
        {{m_open, "a", "state", "b", "state"}, box + "none C\n" + box + "none C\n"},
        {{m_open, "a", "close", m_open, "edit", "state", "close"}, box + edited + "none C\n"},
        {{"own", m_open, "a", "state"}, box + "own C.UTF-8\n"},
        // A host that creates its application object later finds no trace of ours.
        {{m_open, "edit", "b", "own", "state", "window", "edit"},
         edited + box + "own C.UTF-8\nwindow: 0\n" + edited},
        {{"locale=C.UTF-8", m_open, "edit", "locale=C", "own", "state"}, edited + "own C.UTF-8\n"},
        // Messages may come from any thread, the editor only from the GUI thread.
        {{"own", m_open, "ELSEWHERE", "EDIT"}, "named\nedit: -1\n"},
        {{m_open, "ELSEWHERE", "state", "edit", "own", "state"},
         "named\nnone C\n" + edited + "own C.UTF-8\n"},
        {{"deaf", m_open, "a", "edit"}, box + edited},
        {{"gui", m_open, "a", "edit"}, "named\nedit: -1\n"}};
    for (const auto& [calls, output] : hosts) {
        const test::Outcome outcome = Run(calls);
        EXPECT_EQ(outcome.Output, output) << outcome.Errors;
        EXPECT_EQ(outcome.Status, 0) << outcome.Errors;
    }
}

// A host with its own application object, whose connection is lost, is left alone.
TEST_F(Exports, OutliveTheDisplay)
{
    m_program = GUI_HOST;
    Isolate({STYLEATLAS_SONAME, GLOSSA_SONAME});
    m_environment.emplace_back(noLeakCheck);
    const std::string refused = "named\nedit: -1\n";
    const std::pair<const char*, std::string> hosts[] = {{"", box + edited + refused + box + edited},
                                                         {"own", box + edited + refused + refused}};
    for (const auto& [start, output] : hosts) {
        const test::Outcome outcome = test::Run({"sh", "-c", R"(cd $STYLEATLAS_PREFIX
export DISPLAY=:$(($$ % 50000 + 1000))
serve='rm -f ready; Xvfb $DISPLAY -noreset -nolisten tcp -displayfd 3 3>ready >/dev/null 2>&1 &
echo $! >server; until [ -s ready ]; do sleep .05; done'
trap 'kill $(cat server)' EXIT
eval "$serve"
timeout 50 $0 $1 "$2" a edit '!kill $(cat server); while [ -S /tmp/.X11-unix/X${DISPLAY#:} ]; do sleep .05; done' a edit \
  "!$serve; sleep 2.1" a edit)",
                                                 m_program, start, m_open},
                                                m_environment);
        EXPECT_EQ(outcome.Output, output);
        EXPECT_NE(outcome.Errors.find(cannotLoad), std::string::npos) << outcome.Errors;
        EXPECT_EQ(outcome.Status, 0) << outcome.Errors;
    }
}

TEST_F(Exports, TheUnitLibraryIsFoundBesideTheLibraryAndMayHaveNoEntryPoints)
{
    Isolate({STYLEATLAS_SONAME, GLOSSA_SONAME, MENSURA_LIBRARY});
    Expect({m_open, "name=Bench", get}, temperature);
    fs::copy_file(BARE_MENSURA, m_isolated / "libmensura.so", fs::copy_options::overwrite_existing);
    Expect({m_open, "name=Bench", get}, none);
}

TEST_F(Exports, TheLanguageLibraryIsAttachedAfterItsObjectStands)
{
    Isolate({STYLEATLAS_SONAME, MENSURA_LIBRARY});
    fs::copy_file(TRACED_GLOSSA, m_isolated / "libglossa.so.1");
    EXPECT_EQ(Run({m_open, "name=Bench"}).Errors, "glossa constructed\nglossa attached\nglossa destroyed\n");
}

} // namespace
