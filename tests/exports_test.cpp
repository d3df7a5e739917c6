// The library as hosts use it: a program in C that links it, with the real components or doubles of them.
#include "support/Process.h"
#include "support/TempPrefix.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

namespace
{

namespace fs = std::filesystem;

constexpr const char* catalogue = "1; 20; 1; 0; 0; U; voltage\n"
                                  "1; 20; 2; 0; 0; U_rms; voltage, RMS\n"
                                  "0; 30; 0; 0; 0; T; temperature\n";
constexpr const char* get = "get=0,30,0,0,0,0";
const std::string none = "0: 000007 7 7 7 000007 7 7 7\n"; // the answer to a query without a style
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

    // Copies a program and the named libraries to a folder where the loader finds no others.
    void Isolate(const std::vector<fs::path>& libraries, const fs::path& program = HOST_PROBE)
    {
        const fs::path folder = m_prefix.Path() / "isolated";
        fs::create_directories(folder);
        fs::copy(LIBRARY_FOLDER "/styleatlas", folder / "styleatlas");
        for (const fs::path& library : libraries)
            fs::copy_file(library, folder / library.filename(), fs::copy_options::overwrite_existing);
        m_environment.push_back("LD_LIBRARY_PATH=" + folder.string());
        fs::copy_file(program, folder / program.filename());
        m_program = folder / program.filename();
    }

    test::TempPrefix m_prefix;
    std::string m_catalogue = m_prefix.Path() / "catalogue";
    std::vector<std::string> m_environment;
    std::string m_program = HOST_PROBE;
};

TEST_F(Exports, AreFiveNamesAndNoOther)
{
    const test::Outcome outcome =
        test::Run({"nm", "-D", "--defined-only", "--format=posix", STYLEATLAS_LIBRARY}, {});
    ASSERT_EQ(outcome.Status, 0) << outcome.Errors;
    std::set<std::string> names;
    std::istringstream lines(outcome.Output);
    for (std::string line; std::getline(lines, line);)
        names.insert(line.substr(0, line.find(' ')));
    const char* const version = "@@STYLEATLAS_1";
    EXPECT_EQ(names, (std::set<std::string>{
                         std::string("EditStyleAtlas") + version, std::string("GetStyleAtlas") + version,
                         std::string("ReloadStyleAtlas") + version,
                         std::string("StyleAtlasChangeUserInfo") + version,
                         std::string("StyleAtlasSetApplication") + version, "STYLEATLAS_1"}));
}

TEST_F(Exports, BringNoWindowsBeforeOneIsWantedAndCanBeUnloadedUntilThen)
{
    m_program = LOADING_HOST;
    const std::string open = "open=" STYLEATLAS_SONAME;
    const std::string mapped = "mapped: libstyleatlas. libstyleatlas-core\n";
    Expect({open, "name", "get", "edit", "mapped", "close", "mapped", open, "get", "name", "get", "close",
            "mapped"},
           "get: 1\nedit: -1\n" + mapped + "mapped:\nget: 0\nget: 1\nmapped:\n");
    m_environment.emplace_back("DISPLAY=:987"); // which only Qt can find out to be missing
    Expect({open, "name", "mapped", "edit", "close", "mapped"},
           mapped + "edit: -1\nmapped: libQt6 libstyleatlas. libstyleatlas-core libstyleatlas-editor\n");
}

TEST_F(Exports, DoNothingOnceTheirObjectsHaveGone)
{
    m_program = LOADING_HOST;
    Expect({"late", "open=" STYLEATLAS_SONAME, "name", "get"}, "get: 1\nlate: 0 -1\n");
}

TEST_F(Exports, AnswerFromTheTableOnceTheHostHasNamedItself)
{
    Expect({get, "name=Bench", get, "get=1,20,2,0,1,0",
            "get=1,20,9,9,9,9", // answered by the group row of the quantity
            "get=31,30,0,0,0,0", "get=32,30,0,0,0,0", "get=-1,30,0,0,0,0", "get=0,31,0,0,0,0", "edit"},
           none +
               "named\n1: 000000 2 10 2 000000 0 1 0\n1: 002AA5 1 10 1 002AA5 0 1 0\n"
               "1: 002AA5 1 10 1 002AA5 0 1 0\n1: C0C0C0 2 10 2 C0C0C0 0 1 0\n" +
               none + none + none + "edit: -1\n");
}

TEST_F(Exports, ReloadTakesInWhatTheUnitLibraryReportsNow)
{
    Expect({"reload", "get=0,20,1,0,1,0"}, "reloaded\n1: 000000 1 10 1 000000 0 1 0\n");
    test::WriteWhole(m_catalogue, "0; 77; 0; 0; 0; p; pressure\n");
    Expect({"reload", "get=0,77,0,0,0,0", "user=S-1|Software", "get=0,20,0,0,0,0"},
           "reloaded\n1: 000000 1 10 1 000000 0 1 0\nchanged\n" + none);
}

TEST_F(Exports, EndNoHostWithoutUnitLibraryAndWhereNobodySeesAWindow)
{
    Isolate({STYLEATLAS_SONAME, GLOSSA_SONAME});
    const std::string message = "StyleAtlas: " + cannotLoad;
    Expect({"name=Bench", get, "edit"}, "named\n" + none + "edit: -1\n", message + message + message);
    const std::vector<std::string> usual = m_environment;
    for (const char* const place : {"DISPLAY=:987", "DISPLAY=nowhere.invalid:0", "WAYLAND_DISPLAY=nowhere",
                                    "QT_QPA_PLATFORM=nonsense;xcb", "QT_QPA_PLATFORM=linuxfb"}) {
        m_environment = usual;
        m_environment.emplace_back(place);
        const test::Outcome outcome = Run({"name=Bench", "edit"});
        EXPECT_EQ(outcome.Status, 0) << place;
        EXPECT_EQ(outcome.Output, "named\nedit: -1\n") << place;
        EXPECT_NE(outcome.Errors.find(cannotLoad), std::string::npos) << place;
    }
}

TEST_F(Exports, LeaveAHostItsApplicationObject)
{
    m_program = GUI_HOST;
    m_environment.insert(m_environment.end(),
                         {"QT_QPA_PLATFORM=offscreen", "LD_LIBRARY_PATH=" LIBRARY_FOLDER});
    EXPECT_EQ(Run({"open", "bench", "state"}).Output,
              "named\nnone C\n"); // queries create no application object
    EXPECT_EQ(Run({"own", "open", "bench", "state"}).Output, "named\nown C.UTF-8\n");
}

// Without fonts. The locale stays "C", unless the host's own Qt has set it.
TEST_F(Exports, ShowTheirMessagesOnADisplay)
{
    const char* const display = std::getenv("DISPLAY");
    if (display == nullptr)
        GTEST_SKIP() << "no display";
    Isolate({STYLEATLAS_SONAME, GLOSSA_SONAME}, GUI_HOST);
    m_environment.insert(m_environment.end(),
                         {std::string("DISPLAY=") + display, "FONTCONFIG_FILE=/dev/null"});
    const std::pair<std::vector<std::string>, std::string> hosts[] = {
        {{"open", "a", "state", "b"}, box + "none C\n" + box},
        {{"open", "a", "close", "open", "edit", "state", "close"}, box + edited + "none C\n"},
        {{"own", "open", "a", "state"}, box + "own C.UTF-8\n"},
        // A host that creates its application object later finds no trace of ours.
        {{"open", "edit", "b", "own", "state", "window", "edit"},
         edited + box + "own C.UTF-8\nwindow: 0\n" + edited},
        // Messages may come from any thread, the editor only from the GUI thread.
        {{"own", "open", "ELSEWHERE", "EDIT"}, "named\nedit: -1\n"},
        {{"open", "ELSEWHERE", "state", "edit", "own", "state"},
         "named\nnone C\n" + edited + "own C.UTF-8\n"},
        {{"deaf", "open", "a", "edit"}, box + edited},
        {{"gui", "open", "a", "edit"}, "named\nedit: -1\n"},
        {{"core", "open", "a", "edit"}, "named\nedit: -1\n"},
    };
    for (const auto& [calls, output] : hosts) {
        const test::Outcome outcome = Run(calls);
        EXPECT_EQ(outcome.Output, output) << outcome.Errors;
        EXPECT_EQ(outcome.Status, 0);
    }
}

// A host with its own application object, whose connection is lost, is left alone.
TEST_F(Exports, OutliveTheDisplay)
{
    Isolate({STYLEATLAS_SONAME, GLOSSA_SONAME}, GUI_HOST);
    const std::string refused = "named\nedit: -1\n";
    const std::pair<const char*, std::string> hosts[] = {
        {"open", box + edited + refused + box + edited},
        {"own open", box + edited + refused + refused},
    };
    for (const auto& [start, output] : hosts) {
        const test::Outcome outcome = test::Run({"sh", "-c", R"(cd $STYLEATLAS_PREFIX
export DISPLAY=:$(($$ % 50000 + 1000))
serve='rm -f ready; Xvfb $DISPLAY -noreset -nolisten tcp -displayfd 3 3>ready >/dev/null 2>&1 &
echo $! >server; until [ -s ready ]; do sleep .05; done'
trap 'kill $(cat server)' EXIT
eval "$serve"
timeout 50 $0 $1 a edit '!kill $(cat server); while [ -S /tmp/.X11-unix/X${DISPLAY#:} ]; do sleep .05; done' a edit \
  "!$serve; sleep 2.1" a edit)",
                                                 m_program, start},
                                                m_environment);
        EXPECT_EQ(outcome.Output, output);
        EXPECT_NE(outcome.Errors.find(cannotLoad), std::string::npos) << outcome.Errors;
        EXPECT_EQ(outcome.Status, 0) << outcome.Errors;
    }
}

TEST_F(Exports, TheUnitLibraryIsFoundBesideTheLibraryAndMayHaveNoEntryPoints)
{
    Isolate({STYLEATLAS_SONAME, GLOSSA_SONAME, MENSURA_LIBRARY});
    m_environment.pop_back(); // no library path: the probe finds the library in its own folder
    Expect({"name=Bench", get}, "named\n1: 000000 2 10 2 000000 0 1 0\n");
    fs::copy_file(BARE_MENSURA, fs::path(m_program).parent_path() / "libmensura.so",
                  fs::copy_options::overwrite_existing);
    Expect({"name=Bench", get}, "named\n" + none);
}

TEST_F(Exports, TheLanguageLibraryIsAttachedAfterItsObjectStands)
{
    Isolate({STYLEATLAS_SONAME, MENSURA_LIBRARY});
    fs::copy_file(TRACED_GLOSSA, fs::path(m_program).parent_path() / "libglossa.so.1");
    EXPECT_EQ(Run({"name=Bench"}).Errors, "glossa constructed\nglossa attached\nglossa destroyed\n");
}

} // namespace
