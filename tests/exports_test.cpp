// The library as a host meets it: a program in C that links it, with the real components or with stand-ins
// for them.
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

class Exports : public testing::Test
{
protected:
    Exports()
    {
        test::WriteWhole(m_catalogue, catalogue);
        m_environment = {"STYLEATLAS_PREFIX=" + m_prefix.Path().string(), "MENSURA_CATALOGUE=" + m_catalogue,
                         "LC_ALL=C"};
    }

    test::Outcome Run(std::vector<std::string> calls)
    {
        calls.insert(calls.begin(), m_program);
        return test::Run(calls, m_environment);
    }

    // Puts the probe and the named libraries into a folder of their own, where the loader finds no others.
    void Isolate(const std::vector<fs::path>& libraries)
    {
        const fs::path folder = m_prefix.Path() / "isolated";
        fs::create_directories(folder);
        for (const fs::path& library : libraries)
            fs::copy_file(library, folder / library.filename(), fs::copy_options::overwrite_existing);
        m_environment.push_back("LD_LIBRARY_PATH=" + folder.string());
        fs::copy_file(HOST_PROBE, folder / "host_probe");
        m_program = folder / "host_probe";
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
    EXPECT_EQ(names, (std::set<std::string>{"EditStyleAtlas", "GetStyleAtlas", "ReloadStyleAtlas",
                                            "StyleAtlasChangeUserInfo", "StyleAtlasSetApplication"}));
}

TEST_F(Exports, AnswerFromTheTableOnceTheHostHasNamedItself)
{
    const test::Outcome outcome =
        Run({"get=0,30,0,0,0,0", // nothing is loaded yet
             "name=Bench", "get=0,30,0,0,0,0", "get=1,20,2,0,1,0",
             "get=1,20,9,9,9,9", // the group row answers for its quantity
             "get=31,30,0,0,0,0", "get=32,30,0,0,0,0", "get=-1,30,0,0,0,0", "get=0,31,0,0,0,0", "edit"});
    EXPECT_EQ(outcome.Output, "0: 000007 7 7 7 000007 7 7 7\n"
                              "named\n"
                              "1: 000000 2 10 2 000000 0 1 0\n"
                              "1: 002AA5 1 10 1 002AA5 0 1 0\n"
                              "1: 002AA5 1 10 1 002AA5 0 1 0\n"
                              "1: C0C0C0 2 10 2 C0C0C0 0 1 0\n"
                              "0: 000007 7 7 7 000007 7 7 7\n"
                              "0: 000007 7 7 7 000007 7 7 7\n"
                              "0: 000007 7 7 7 000007 7 7 7\n"
                              "edit: -1\n");
    EXPECT_EQ(outcome.Errors, "");
    EXPECT_EQ(outcome.Status, 0);
}

TEST_F(Exports, AHostOfAnotherKindGetsTheOtherRules)
{
    EXPECT_EQ(Run({"name=tandrell", "get=1,30,0,0,0,0"}).Output, "named\n1: 002AA5 1 10 1 002AA5 0 1 0\n");
}

TEST_F(Exports, ReloadTakesInWhatTheUnitLibraryReportsNow)
{
    EXPECT_EQ(Run({"reload", "get=0,20,1,0,1,0"}).Output, "reloaded\n1: 000000 1 10 1 000000 0 1 0\n");
    test::WriteWhole(m_catalogue, "0; 77; 0; 0; 0; p; pressure\n");
    EXPECT_EQ(Run({"reload", "get=0,77,0,0,0,0", "user=S-1|Software", "get=0,20,0,0,0,0"}).Output,
              "reloaded\n1: 000000 1 10 1 000000 0 1 0\nchanged\n0: 000007 7 7 7 000007 7 7 7\n");
}

TEST_F(Exports, AMissingUnitLibraryIsToldAtEveryCallAndEndsNothing)
{
    Isolate({STYLEATLAS_SONAME, GLOSSA_SONAME});
    const test::Outcome outcome = Run({"name=Bench", "get=0,30,0,0,0,0", "edit"});
    EXPECT_EQ(outcome.Output, "named\n0: 000007 7 7 7 000007 7 7 7\nedit: -1\n");
    const std::string message = "StyleAtlas: Cannot load Mensura.dll\n";
    EXPECT_EQ(outcome.Errors, message + message + message);
    EXPECT_EQ(outcome.Status, 0);
}

TEST_F(Exports, AUnitLibraryWithoutEntryPointsGivesAnEmptyTable)
{
    Isolate({STYLEATLAS_SONAME, GLOSSA_SONAME});
    fs::copy_file(BARE_MENSURA, fs::path(m_program).parent_path() / "libmensura.so");
    const test::Outcome outcome = Run({"name=Bench", "get=0,30,0,0,0,0"});
    EXPECT_EQ(outcome.Output, "named\n0: 000007 7 7 7 000007 7 7 7\n");
    EXPECT_EQ(outcome.Errors, "");
    EXPECT_EQ(outcome.Status, 0);
}

TEST_F(Exports, TheUnitLibraryIsFoundBesideTheLibrary)
{
    Isolate({STYLEATLAS_SONAME, GLOSSA_SONAME, MENSURA_LIBRARY});
    m_environment.pop_back(); // no library path: the probe finds the library beside itself
    EXPECT_EQ(Run({"name=Bench", "get=0,30,0,0,0,0"}).Output, "named\n1: 000000 2 10 2 000000 0 1 0\n");
}

TEST_F(Exports, TheLanguageLibraryIsAttachedAfterItsObjectStands)
{
    Isolate({STYLEATLAS_SONAME, MENSURA_LIBRARY});
    fs::copy_file(TRACED_GLOSSA, fs::path(m_program).parent_path() / "libglossa.so.1");
    EXPECT_EQ(Run({"name=Bench"}).Errors, "glossa constructed\nglossa attached\nglossa destroyed\n");
}

TEST_F(Exports, TheModulesObjectsAreConstructedInOrderAndDestroyedInReverse)
{
    EXPECT_EQ(test::Run({TRACED_OBJECTS}, {}).Output,
              "ColorPopupSelChange\nColorPopupDropdown\nColorPopupCloseUp\nColorPopupSelEndOK\n"
              "ColorPopupSelEndChange\n+language\n+atlas\n+text\n+text\n+application\nloaded\n"
              "-application\n-text\n-text\n-atlas\n-language\n");
}

} // namespace
