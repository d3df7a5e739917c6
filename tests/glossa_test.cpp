// The language library: which texts a user gets, and that no bad catalogue does harm.
#include "support/TempPrefix.h"

#include "Glossa.h"

#include <gtest/gtest.h>
#include <map>
#include <sys/stat.h>

namespace
{

namespace fs = std::filesystem;

constexpr const TCHAR* section = _T("Styleatlas");
constexpr std::uint32_t headSize = 28; // of a catalogue, in bytes

std::string Word(std::uint32_t word, bool bigEndian = false)
{
    std::string bytes;
    for (int i = 0; i < 4; ++i)
        bytes.push_back(static_cast<char>(word >> 8 * (bigEndian ? 3 - i : i)));
    return bytes;
}

// A compiled catalogue with any texts, which a test can damage.
std::string Compile(const std::map<std::string, std::string>& messages, bool bigEndian = false)
{
    const auto count = static_cast<std::uint32_t>(messages.size());
    const std::uint32_t textStart = headSize + 16 * count;
    std::string texts;
    std::string tables;
    for (const bool translated : {false, true}) {
        for (const auto& [id, text] : messages) {
            const std::string& part = translated ? text : id;
            tables += Word(static_cast<std::uint32_t>(part.size()), bigEndian);
            tables += Word(static_cast<std::uint32_t>(textStart + texts.size()), bigEndian);
            texts += part + '\0';
        }
    }
    std::string head;
    for (const std::uint32_t word : {0x950412DEU, 0U, count, headSize, headSize + 8 * count, 0U, textStart})
        head += Word(word, bigEndian);
    return head + tables + texts;
}

// An environment without a language, and a folder for the test's catalogues.
class Glossa : public testing::Test
{
protected:
    using Setting = std::map<std::string, const char*>;

    void Use(const Setting& setting) const
    {
        for (const test::ScopedVariable& variable : m_languages)
            variable.Put(nullptr);
        for (const auto& [name, value] : setting)
            setenv(name.c_str(), value, 1);
    }

    // Without a locale the list in LANGUAGE doesn't count.
    void UseLanguage(const char* language) const { Use({{"LANG", "zz"}, {"LANGUAGE", language}}); }

    fs::path Write(const std::string& language, const std::string& bytes) const
    {
        const fs::path folder = m_prefix.Path() / language / "LC_MESSAGES";
        m_folder.Put(m_prefix.Path().c_str());
        fs::create_directories(folder);
        test::WriteWhole(folder / "glossa.mo", bytes);
        return folder / "glossa.mo";
    }

    // The text as a program shows it that starts now.
    static std::u16string Shown(const TCHAR* text, const TCHAR* textSection = section)
    {
        return k_GlossaW().GetUnStrippedText(text, textSection, true);
    }

    // The same, with a catalogue reported as left out for this reason, or none for an empty reason.
    static void ExpectReported(const std::string& reason, const TCHAR* text, std::u16string_view shown)
    {
        testing::internal::CaptureStderr();
        EXPECT_EQ(Shown(text), shown);
        const std::string report = testing::internal::GetCapturedStderr();
        EXPECT_TRUE(reason.empty() ? report.empty() : report.find(reason) != std::string::npos) << report;
    }

    const test::TempPrefix m_prefix;
    const test::ScopedVariable m_languages[4] = {
        {"LANGUAGE", nullptr}, {"LC_ALL", nullptr}, {"LC_MESSAGES", nullptr}, {"LANG", nullptr}};
    const test::ScopedVariable m_folder{"GLOSSA_LOCALEDIR", nullptr};
};

TEST_F(Glossa, FollowsEveryVariableByItsRank)
{
    const std::pair<Setting, bool> settings[] = {
        {{{"LC_MESSAGES", "de_DE@euro"}, {"LANG", "C"}}, true},
        {{{"LC_ALL", "de_CH.ISO-8859-1"}, {"LC_MESSAGES", "C"}}, true},
        {{{"LANGUAGE", "de"}, {"LC_ALL", "C.UTF-8"}}, true},
        {{{"LANGUAGE", "xx:../de:de/../de::de:en"}, {"LANG", "xx"}}, true},
        {{}, false},
        {{{"LANGUAGE", "de"}, {"LC_ALL", "C"}}, false},
        {{{"LANGUAGE", "en_GB:de"}, {"LANG", "de"}}, false}};
    for (const auto& [setting, isGerman] : settings) {
        Use(setting);
        EXPECT_EQ(Shown(_T("Device_5")), isGerman ? u"Klimakammer" : u"thermal chamber")
            << testing::PrintToString(setting);
    }
}

TEST_F(Glossa, PrefersTheCatalogueOfTheTerritoryAndTheModifier)
{
    UseLanguage("xx_YY.UTF-8@z");
    for (const std::string language : {"xx", "xx_YY", "xx@z", "xx_YY@z"}) {
        Write(language, Compile({{"Styleatlas\4Cancel", language}}));
        EXPECT_EQ(Shown(_T("Cancel")), std::u16string(language.begin(), language.end()));
    }
}

TEST_F(Glossa, TranslatesBySectionAndLanguageAndElseGivesTheTextItself)
{
    UseLanguage("de");
    EXPECT_EQ(Shown(_T("Error"), _T("Language")), u"Fehler");
    EXPECT_EQ(Shown(_T("Error")), u"Error");
    k_GlossaW language;
    EXPECT_EQ(language.GetUnStrippedText(CString(_T("Device_5")), section, false), _T("thermal chamber"));
    EXPECT_EQ(language.GetUnStrippedText(CString(_T("Cancel")), section, true), _T("Abbrechen"));
    for (const TCHAR* const text : {_T("Device_9"), _T(""), _T("/data/R&D/ ")}) {
        EXPECT_EQ(language.GetUnStrippedText(text, section, true), text);
        EXPECT_EQ(language.GetStrippedText(text, section, true), text);
    }
    EXPECT_EQ(language.GetStrippedText(nullptr, section, true), nullptr);
    const TCHAR* const first = language.GetUnStrippedText(_T("Black"), section, true);
    for (int i = 0; i < 10000; ++i)
        language.GetUnStrippedText(std::u16string(1, static_cast<char16_t>(i)).c_str(), section, true);
    EXPECT_EQ(std::u16string(first), u"Schwarz") << "what was given stays";
}

TEST_F(Glossa, ReadsEveryShapeOfCatalogue)
{
    UseLanguage("xx");
    const std::map<std::string, std::string> messages = {
        {"", "Content-Type: text/plain; charset=utf-8\n"},
        {"Styleatlas\4empty", ""},
        {"Styleatlas\4bad bytes", "a\xFF\xC3"},
        {"Styleatlas\4marks", " Sichern && &Ende "},
        {"Styleatlas\4Cancel", "\xF0\x9F\x93\x88 na\xC3\xAFve"},
        {std::string("Styleatlas\4row\0rows", 19), std::string("Zeile\0Zeilen", 12)}};
    const std::pair<const TCHAR*, std::u16string_view> shown[] = {{_T("Cancel"), u"\U0001F4C8 naïve"},
                                                                  {_T("row"), u"Zeile"},
                                                                  {_T("empty"), u"empty"},
                                                                  {_T("bad bytes"), u"a\uFFFD\uFFFD"},
                                                                  {_T("marks"), u" Sichern && &Ende "}};
    for (const bool bigEndian : {false, true}) {
        Write("xx", Compile(messages, bigEndian));
        for (const auto& [id, text] : shown)
            EXPECT_EQ(Shown(id), text);
        EXPECT_EQ(std::u16string(k_GlossaW().GetStrippedText(_T("marks"), section, true)), u"Sichern & Ende");
    }
}

TEST_F(Glossa, RefusesADamagedCatalogueAndReportsIt)
{
    UseLanguage("xx");
    const std::string good = Compile({{"Styleatlas\4Cancel", "bad"}});
    const auto size = static_cast<std::uint32_t>(good.size());
    std::vector<std::string> bad = {
        std::string(2 << 20, 'x'), good + std::string(2 << 20, '\0'),
        Compile({{"", "Content-Type: text/plain; charset=ISO-8859-1\n"}, {"Styleatlas\4Cancel", "bad"}})};
    const std::pair<std::size_t, std::uint32_t> damages[] = {
        {0, 0x950412DF}, {4, 0x00020000}, {8, 0x7FFFFFFF}, {8, ~0U}, {12, ~0U},
        {16, size - 7},  {28, ~0U},       {32, ~0U << 4},  {36, 2},  {40, size}};
    for (const auto& [at, word] : damages)
        bad.push_back(std::string(good).replace(at, 4, Word(word)));
    // Two references to one long text: with many, a small file would need a gigabyte.
    std::string swelling = Compile({{"Styleatlas\4Cancel", std::string(200, 'x')}, {"Styleatlas\4b", ""}});
    swelling.replace(headSize + 24, 8, swelling.substr(headSize + 16, 8));
    bad.push_back(swelling);
    for (const std::string& bytes : bad) {
        SCOPED_TRACE(testing::Message() << "case " << &bytes - bad.data());
        Write("xx", bytes);
        ExpectReported("xx/LC_MESSAGES/glossa.mo is left out", _T("Cancel"), u"Cancel");
    }
}

TEST_F(Glossa, NeitherMissingNorStrangeFilesHoldUp)
{
    UseLanguage("xx");
    m_folder.Put((m_prefix.Path() / "nowhere").c_str());
    ExpectReported("", _T("Device_5"), u"Device_5");
    Write("en", Compile({{"Styleatlas\4Device_5", "a name"}}));
    const fs::path file = Write("xx", "");
    ASSERT_TRUE(fs::remove(file) && mkfifo(file.c_str(), 0600) == 0);
    ExpectReported("not a regular file", _T("Device_5"), u"a name");
}

TEST_F(Glossa, HostileLanguageListStaysInBounds)
{
    std::string list;
    for (int i = 0; i < 20000; ++i)
        list += "zz_" + std::to_string(i) + ":";
    for (const std::string& value :
         {list + "de", std::string(100000, 'd'), std::string(100000, ':').append("de")}) {
        UseLanguage(value.c_str());
        ExpectReported("", _T("Device_5"), u"thermal chamber");
    }
    // Names that lead out of the folder of languages.
    for (const char* const language : {".", "xx"})
        Write(language, Compile({{"Styleatlas\4Cancel", "found"}}));
    for (const char* const value : {".", "..", "@x", "_XX", "xx/.", "xx/../xx", "\xFF\xFE"}) {
        UseLanguage(value);
        EXPECT_EQ(Shown(_T("Cancel")), u"Cancel") << value;
    }
}

} // namespace
