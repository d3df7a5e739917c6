// The language library: whose texts a user gets, and what a bad catalogue can do.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <dlfcn.h>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "Glossa.h"

namespace
{

namespace fs = std::filesystem;

constexpr const char* languageVariables[] = {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG", "GLOSSA_LOCALEDIR"};
constexpr const TCHAR* section = _T("Styleatlas");
constexpr std::uint32_t headSize = 28; // bytes of a catalogue before its tables

// The value of a variable of the environment; empty where it isn't set.
std::string ValueOf(const char* variable)
{
    const char* const value = std::getenv(variable);
    return value != nullptr ? value : "";
}

void Restore(const char* variable, const std::string& value)
{
    if (value.empty())
        unsetenv(variable);
    else
        setenv(variable, value.c_str(), 1);
}

std::u16string Of(const TCHAR* text)
{
    return text;
}

std::string Word(std::uint32_t word, bool bigEndian)
{
    std::string bytes;
    for (int i = 0; i < 4; ++i)
        bytes.push_back(static_cast<char>(word >> 8 * (bigEndian ? 3 - i : i)));
    return bytes;
}

// A compiled catalogue, made here so that a test can have any texts, whole or damaged.
std::string Compile(const std::map<std::string, std::string>& messages, bool bigEndian = false)
{
    const auto count = static_cast<std::uint32_t>(messages.size());
    std::string texts;
    std::string tables[2];
    for (const bool translated : {false, true}) {
        for (const auto& [id, text] : messages) {
            const std::string& part = translated ? text : id;
            tables[translated] += Word(static_cast<std::uint32_t>(part.size()), bigEndian);
            tables[translated] +=
                Word(static_cast<std::uint32_t>(headSize + 16 * count + texts.size()), bigEndian);
            texts += part + '\0';
        }
    }
    std::string head;
    for (const std::uint32_t word :
         {0x950412DEU, 0U, count, headSize, headSize + 8 * count, 0U, headSize + 16 * count})
        head += Word(word, bigEndian);
    return head + tables[0] + tables[1] + texts;
}

// An environment that names no language, and a folder for catalogues of the test's own.
class Glossa : public testing::Test
{
protected:
    void SetUp() override
    {
        for (const char* const variable : languageVariables) {
            m_before.emplace_back(variable, ValueOf(variable));
            unsetenv(variable);
        }
        setenv("LANG", "zz", 1); // without a locale the list in LANGUAGE doesn't count
        std::string folder = (fs::temp_directory_path() / "glossa-XXXXXX").string();
        ASSERT_NE(mkdtemp(folder.data()), nullptr);
        m_folder = folder;
    }

    void TearDown() override
    {
        for (const auto& [variable, value] : m_before)
            Restore(variable, value);
        fs::remove_all(m_folder);
    }

    fs::path CatalogueOf(const std::string& language)
    {
        setenv("GLOSSA_LOCALEDIR", m_folder.c_str(), 1);
        fs::create_directories(m_folder / language / "LC_MESSAGES");
        return m_folder / language / "LC_MESSAGES" / "glossa.mo";
    }

    void Write(const std::string& language, const std::string& bytes)
    {
        std::ofstream(CatalogueOf(language), std::ios::binary) << bytes;
    }

    // What a program that starts now shows for the text.
    static std::u16string Shown(const TCHAR* text, const TCHAR* textSection = section)
    {
        return k_GlossaW().GetUnStrippedText(text, textSection, true);
    }

    fs::path m_folder;

private:
    std::vector<std::pair<const char*, std::string>> m_before;
};

TEST_F(Glossa, GermanFollowsEveryVariableByItsRank)
{
    using Setting = std::vector<std::pair<const char*, const char*>>;
    const Setting german[] = {{{"LANGUAGE", "de"}, {"LANG", "en_US.UTF-8"}},
                              {{"LANG", "de_AT.UTF-8"}},
                              {{"LC_MESSAGES", "de_DE@euro"}, {"LANG", "C"}},
                              {{"LC_ALL", "de_CH.ISO-8859-1"}, {"LC_MESSAGES", "C"}},
                              {{"LANGUAGE", "de"}, {"LC_ALL", "C.UTF-8"}},
                              {{"LANGUAGE", ""}, {"LANG", "de"}},
                              {{"LANGUAGE", "xx:../de:de/../de::de:en"}, {"LANG", "xx"}}};
    const Setting english[] = {{},
                               {{"LC_ALL", "C"}},
                               {{"LANG", "POSIX"}},
                               {{"LANGUAGE", "de"}},
                               {{"LANGUAGE", "de"}, {"LC_ALL", "C"}},
                               {{"LANG", "C.UTF-8"}},
                               {{"LANG", "xx_XX.UTF-8"}},
                               {{"LANGUAGE", "xx"}, {"LC_ALL", "C.UTF-8"}},
                               {{"LANGUAGE", "en_GB:de"}, {"LANG", "de"}},
                               {{"LANGUAGE", "C:de"}, {"LANG", "de"}},
                               {{"LC_ALL", "C"}, {"LANG", "de"}}};
    const auto shownUnder = [](const Setting& setting, const TCHAR* text) {
        for (const char* const variable : languageVariables)
            unsetenv(variable);
        for (const auto& [variable, value] : setting)
            setenv(variable, value, 1);
        return Shown(text);
    };
    for (const Setting& setting : german) {
        SCOPED_TRACE(setting.front().second);
        EXPECT_EQ(shownUnder(setting, _T("Cancel")), u"Abbrechen");
        EXPECT_EQ(shownUnder(setting, _T("Device_5")), u"Klimakammer");
    }
    for (const Setting& setting : english) {
        SCOPED_TRACE(setting.empty() ? "nothing set" : setting.front().second);
        EXPECT_EQ(shownUnder(setting, _T("Cancel")), u"Cancel");
        EXPECT_EQ(shownUnder(setting, _T("Device_5")), u"thermal chamber");
    }
}

TEST_F(Glossa, UntranslatedTextComesBackAsItself)
{
    setenv("LANGUAGE", "de", 1);
    k_GlossaW language;
    for (const TCHAR* const text :
         {_T("Device_9"), _T("device_1"), _T(""), _T("/data/R&D/ "), _T("Styleatlas")}) {
        EXPECT_EQ(language.GetUnStrippedText(text, section, true), text);
        EXPECT_EQ(language.GetStrippedText(text, section, true), text);
        EXPECT_EQ(language.GetUnStrippedText(CString(text), section, true), CString(text));
    }
    EXPECT_EQ(language.GetStrippedText(nullptr, section, true), nullptr);
    EXPECT_EQ(language.GetUnStrippedText(static_cast<const TCHAR*>(nullptr), section, true), nullptr);
}

TEST_F(Glossa, SectionTellsEqualTextsApart)
{
    setenv("LANGUAGE", "de", 1);
    EXPECT_EQ(Shown(_T("Error"), _T("Language")), u"Fehler");
    EXPECT_EQ(Shown(_T("Error")), u"Error");
    EXPECT_EQ(Shown(_T("Cancel"), _T("")), u"Cancel");
}

TEST_F(Glossa, OtherThanUsersLanguageIsEnglish)
{
    setenv("LANGUAGE", "de", 1);
    k_GlossaW language;
    EXPECT_EQ(Of(language.GetUnStrippedText(_T("Device_5"), section, false)), u"thermal chamber");
    EXPECT_EQ(language.GetUnStrippedText(CString(_T("Cancel")), section, false), _T("Cancel"));
    EXPECT_EQ(language.GetUnStrippedText(CString(_T("Cancel")), section, true), _T("Abbrechen"));
}

TEST_F(Glossa, StrippedTextHasNoMarksAndNoBlanksAround)
{
    setenv("LANGUAGE", "xx", 1);
    const std::pair<const char*, const TCHAR*> texts[] = {{"&Datei", _T("Datei")},
                                                          {" Sichern && &Ende ", _T("Sichern & Ende")},
                                                          {"\t blass gr\xC3\xBCn ", _T("blass grün")},
                                                          {"A&", _T("A")},
                                                          {" & ", _T("")},
                                                          {"&&&&", _T("&&")}};
    for (const auto& [translation, stripped] : texts) {
        SCOPED_TRACE(translation);
        Write("xx", Compile({{"Styleatlas\4text", translation}}));
        EXPECT_EQ(Of(k_GlossaW().GetStrippedText(_T("text"), section, true)), stripped);
    }
    EXPECT_EQ(Shown(_T("text")), u"&&&&");

    unsetenv("GLOSSA_LOCALEDIR");
    setenv("LANGUAGE", "de", 1);
    EXPECT_EQ(Shown(_T("Pale green ")), u"Blassgrün ");
    EXPECT_EQ(Of(k_GlossaW().GetStrippedText(_T("Pale green "), section, true)), u"Blassgrün");
}

TEST_F(Glossa, PointersStayGoodWhileOthersAreAsked)
{
    setenv("LANGUAGE", "de", 1);
    k_GlossaW language;
    const TCHAR* const first = language.GetUnStrippedText(_T("Black"), section, true);
    for (int i = 0; i < 10000; ++i) {
        CString text;
        text.Format(_T("text %d"), i);
        EXPECT_EQ(language.GetUnStrippedText(text.GetString(), section, true), text.GetString());
    }
    EXPECT_EQ(language.GetUnStrippedText(_T("Black"), section, true), first);
    EXPECT_EQ(Of(first), u"Schwarz");
}

TEST_F(Glossa, SpecialFormsOfALanguageComeBeforeTheGeneralOne)
{
    setenv("LANGUAGE", "aa_BB.UTF-8@m:cc", 1);
    const char* const order[] = {"aa_BB@m", "aa@m", "aa_BB", "aa", "cc"};
    std::map<std::string, std::string> messages;
    // From the last one on, each adds a text of its own and translates those of the better ones too.
    for (const char* const language : order) {
        messages["Styleatlas\4" + std::string(language)];
        for (auto& [id, text] : messages)
            text = language;
        Write(language, Compile(messages));
    }
    for (const char* const language : order) {
        const std::u16string name(language, language + std::string_view(language).size());
        EXPECT_EQ(Shown(name.c_str()), name);
        EXPECT_EQ(Shown(_T("aa_BB@m")), name);
        fs::remove_all(m_folder / language);
    }
}

TEST_F(Glossa, ReadsEveryShapeOfCatalogue)
{
    setenv("LANGUAGE", "xx", 1);
    const std::map<std::string, std::string> messages = {
        {"", "Content-Type: text/plain; charset=utf-8\n"},
        {"Cancel", "without a section"},
        {"Styleatlas\4empty", ""},
        {"Styleatlas\4bad bytes", "a\xFF\xC3"},
        {"Styleatlas\4Cancel", "\xF0\x9F\x93\x88 na\xC3\xAFve"},
        {std::string("Styleatlas\4row\0rows", 19), std::string("Zeile\0Zeilen", 12)}};
    for (const bool bigEndian : {false, true}) {
        Write("xx", Compile(messages, bigEndian));
        EXPECT_EQ(Shown(_T("Cancel")), u"\U0001F4C8 naïve");
        EXPECT_EQ(Shown(_T("row")), u"Zeile");
        EXPECT_EQ(Shown(_T("empty")), u"empty");
        EXPECT_EQ(Shown(_T("bad bytes")), u"a\uFFFD\uFFFD");
    }
}

// Catalogues of which nothing may be used, each told on standard error.
TEST_F(Glossa, RefusesADamagedCatalogue)
{
    setenv("LANGUAGE", "xx", 1);
    const std::string good = Compile({{"Styleatlas\4Cancel", "bad"}});
    const auto with = [&good](std::size_t at, std::uint32_t word) {
        return std::string(good).replace(at, 4, Word(word, false));
    };
    // Many messages that share one long text: a small file that would take a gigabyte.
    constexpr std::uint32_t many = 1000;
    std::map<std::string, std::string> messages = {{"Styleatlas\4Cancel", std::string(400000, 'x')}};
    for (std::uint32_t i = 1; i < many; ++i)
        messages["Styleatlas\4" + std::to_string(i)] = "";
    std::string swelling = Compile(messages);
    const std::string longText = swelling.substr(headSize + 16 * many - 8, 8); // Cancel is the last
    for (std::uint32_t i = 0; i < many; ++i)
        swelling.replace(headSize + 8 * (many + i), 8, longText);

    const std::string bad[] = {
        "",
        good.substr(0, 27),
        good.substr(0, good.size() - 1),
        with(0, 0x950412DF),
        with(4, 0x00020000),
        with(8, 0x7FFFFFFF),
        with(8, 0xFFFFFFFF),
        with(12, 0xFFFFFFFF),
        with(16, static_cast<std::uint32_t>(good.size()) - 7),
        with(28, 0xFFFFFFFF),
        with(32, 0xFFFFFFF0),
        with(36, 2),
        with(40, static_cast<std::uint32_t>(good.size())),
        Compile({{"", "Content-Type: text/plain; charset=ISO-8859-1\n"}, {"Styleatlas\4Cancel", "bad"}}),
        std::string(2 << 20, 'x'),
        good + std::string(2 << 20, '\0'),
        swelling};
    for (const std::string& bytes : bad) {
        SCOPED_TRACE(testing::Message() << "case " << &bytes - bad);
        Write("xx", bytes);
        testing::internal::CaptureStderr();
        EXPECT_EQ(Shown(_T("Cancel")), u"Cancel");
        EXPECT_NE(testing::internal::GetCapturedStderr().find("xx/LC_MESSAGES/glossa.mo is left out"),
                  std::string::npos);
    }
}

// A lookup in a catalogue with one byte changed gives some text; with the sanitizers, it touches no foreign
// memory.
TEST_F(Glossa, SurvivesEveryByteAndEveryLengthOfACatalogue)
{
    setenv("LANGUAGE", "xx", 1);
    const std::string good =
        Compile({{"", "charset=UTF-8\n"}, {"Language\4Error", "!"}, {"Styleatlas\4Cancel", "?"}});
    testing::internal::CaptureStderr();
    for (std::size_t at = 0; at < good.size(); ++at) {
        Write("xx", good.substr(0, at));
        EXPECT_EQ(Shown(_T("Cancel")), u"Cancel") << at;
        for (const int value : {0x00, 0x01, 0x7F, 0x80, 0xFF}) {
            std::string changed = good;
            changed[at] = static_cast<char>(value);
            Write("xx", changed);
            const std::u16string shown = Shown(_T("Cancel"));
            EXPECT_LT(shown.size(), good.size());
        }
    }
    testing::internal::GetCapturedStderr();
}

TEST_F(Glossa, NeitherMissingNorStrangeFilesHoldUp)
{
    setenv("LANGUAGE", "xx", 1);
    setenv("GLOSSA_LOCALEDIR", (m_folder / "nowhere").c_str(), 1);
    testing::internal::CaptureStderr();
    EXPECT_EQ(Shown(_T("Device_5")), u"Device_5");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");

    Write("en", Compile({{"Styleatlas\4Device_5", "a name"}}));
    const fs::path file = CatalogueOf("xx");
    const auto expectLeftOut = [](const char* reason) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(Shown(_T("Device_5")), u"a name");
        EXPECT_NE(testing::internal::GetCapturedStderr().find(reason), std::string::npos);
    };
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    expectLeftOut("not a regular file");
    fs::remove(file);
    fs::create_directory(file);
    expectLeftOut("not a regular file");
    fs::remove(file);
    fs::create_symlink("/dev/zero", file);
    expectLeftOut("not a regular file");
    fs::remove(file);
    fs::create_symlink(file, file);
    expectLeftOut("is left out");
}

TEST_F(Glossa, HostileLanguageListStaysInBounds)
{
    std::string list;
    for (int i = 0; i < 20000; ++i)
        list += "zz_" + std::to_string(i) + ":";
    for (const std::string& value :
         {list + "de", std::string(100000, 'd'), std::string(100000, ':') + "de"}) {
        setenv("LANGUAGE", value.c_str(), 1);
        testing::internal::CaptureStderr();
        EXPECT_EQ(Shown(_T("Device_5")), u"thermal chamber");
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    }
    // Names that would reach a file outside the folders of languages.
    const std::string found = Compile({{"Styleatlas\4Cancel", "found"}});
    Write(".", found);
    Write("xx", found);
    for (const char* const value : {".", "..", "@x", "_XX", "xx/.", "xx/../xx", "\xFF\xFE"}) {
        setenv("LANGUAGE", value, 1);
        EXPECT_EQ(Shown(_T("Cancel")), u"Cancel") << value;
    }
    setenv("LANGUAGE", "xx", 1);
    EXPECT_EQ(Shown(_T("Cancel")), u"found");
}

TEST_F(Glossa, LibraryFoundByARelativePathKeepsItsCatalogues)
{
    Dl_info library = {};
    ASSERT_NE(dladdr(reinterpret_cast<const void*>(&InitMFCGlossaExtDLL), &library), 0);
    const std::string before = ValueOf("LD_LIBRARY_PATH");
    setenv("LD_LIBRARY_PATH",
           (fs::relative(fs::path(library.dli_fname).parent_path()).string() + ":" + before).c_str(), 1);
    // The style that starts the test program anew, so that the loader goes by the variable.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            setenv("LANGUAGE", "de", 1);
            InitMFCGlossaExtDLL();
            fs::current_path("/");
            fs::remove_all(m_folder); // the end of this test program comes before TearDown
            std::exit(Shown(_T("Cancel")) == u"Abbrechen" ? EXIT_SUCCESS : EXIT_FAILURE);
        },
        testing::ExitedWithCode(EXIT_SUCCESS), "");
    Restore("LD_LIBRARY_PATH", before);
}

} // namespace
