// Loading, saving and the file path: which file is taken, what the registry holds, what the user is told.
#include "support/LayoutBytes.h"
#include "support/MessageRecorder.h"
#include "support/RegistryKey.h"
#include "support/ScriptedModel.h"
#include "support/TempPrefix.h"

#include <model/Host.h>

#include <tuple>

namespace
{

constexpr const TCHAR* subKey = _T(".DEFAULT\\Software\\Halvorn\\Quorvia");
constexpr const TCHAR* defaultPath = _T("C:\\ProgramData\\Halvorn\\Bench\\Style.Atlas");
constexpr const char* defaultFile = "ProgramData/Halvorn/Bench/Style.Atlas";

using Value = std::optional<std::u16string>;

void SetValue(const TCHAR* name, DWORD type, const std::string& bytes)
{
    test::RegistryKey key;
    ASSERT_EQ(key.Create(name), 0);
    ASSERT_EQ(key.Set(bytes, _T("StyleAtlas"), type), 0);
}

std::string Bytes(std::u16string_view text)
{
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)};
}

void SetText(const TCHAR* key, std::u16string_view text)
{
    SetValue(key, REG_SZ, Bytes(std::u16string(text) + u'\0'));
}

// The text of the value with its terminator taken off; nothing where the key or the value is missing.
Value ValueOf(const TCHAR* name)
{
    test::RegistryKey key;
    DWORD type = 0;
    if (key.Open(name, KEY_READ) != 0)
        return {};
    const std::string bytes = key.Get(_T("StyleAtlas"), 8192, &type);
    if (type != REG_SZ || bytes.size() < sizeof(char16_t))
        return {};
    return std::u16string(reinterpret_cast<const char16_t*>(bytes.data()),
                          bytes.size() / sizeof(char16_t) - 1);
}

class Storage : public testing::Test
{
protected:
    Storage()
    {
        test::SetUnits(test::SingleQuantities(3));
        g_ApplicationName = _T("Bench");
        m_prefix.MakeFolder("ProgramData/Halvorn/Bench");
        m_atlas.SetRegistryPath(subKey);
    }
    ~Storage() override { g_ApplicationName.Empty(); }

    // A file in which the second quantity has a line of width 5.
    std::string StyledFile()
    {
        k_StyleAtlas styled;
        styled.BuildCatalogue();
        styled.GetRowStyle(1, 0)->LineWidth = 5;
        return test::BytesOf(styled);
    }

    bool TableHasDefaultStyles() { return m_atlas.GetRowStyle(1, 0)->SymbolShape == 2; }
    bool TableCameFromFile() { return m_atlas.GetRowStyle(1, 0)->LineWidth == 5; }
    bool TableIsBare()
    {
        return !TableHasDefaultStyles() && !TableCameFromFile() && m_atlas.Rows.GetSize() == 3;
    }

    test::TempPrefix m_prefix;
    test::MessageRecorder m_messages;
    k_StyleAtlas m_atlas;
};

TEST_F(Storage, TheFirstStartTakesTheDefaultPathAndTheDefaultStyles)
{
    EXPECT_EQ(ValueOf(subKey), Value{}); // a path set nowhere yet writes nothing
    EXPECT_EQ(m_atlas.Load({}), 1);
    EXPECT_EQ(m_atlas.FilePath, defaultPath);
    EXPECT_EQ(ValueOf(subKey), Value(defaultPath));
    EXPECT_TRUE(TableHasDefaultStyles());
    EXPECT_FALSE(std::filesystem::exists(m_prefix.Native(defaultFile)));

    test::WriteWhole(m_prefix.Native(defaultFile), StyledFile());
    EXPECT_EQ(m_atlas.Load({}), 0);
    EXPECT_TRUE(TableCameFromFile());
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(Storage, ARegistryValueNamesTheFileUnlessTheCallerDoes)
{
    test::WriteWhole(m_prefix.Native("mine"), StyledFile());
    m_atlas.FilePath = _T("before");
    EXPECT_EQ(m_atlas.Load(_T("\\mine")), 0);
    EXPECT_TRUE(TableCameFromFile());
    EXPECT_EQ(m_atlas.Load(m_prefix.Native("none").u16string().c_str()), 1); // a native path
    EXPECT_EQ(m_atlas.FilePath, _T("before"));
    EXPECT_EQ(ValueOf(subKey), Value{});

    SetText(subKey, u"C:\\mine");
    EXPECT_EQ(m_atlas.Load({}), 0);
    EXPECT_TRUE(TableCameFromFile());
    EXPECT_EQ(m_atlas.FilePath, _T("C:\\mine"));
    SetText(subKey, u"%TEMP%\\none");
    EXPECT_EQ(m_atlas.Load({}), 1);
    EXPECT_EQ(m_atlas.FilePath, _T("%TEMP%\\none")); // as it stands
    EXPECT_EQ(ValueOf(subKey), u"%TEMP%\\none");
    EXPECT_TRUE(TableHasDefaultStyles());

    EXPECT_FALSE(m_atlas.SetFilePath({}));
    EXPECT_TRUE(m_atlas.SetFilePath(_T("C:\\mine")));
    EXPECT_EQ(ValueOf(subKey), u"C:\\mine");
    m_atlas.SetRegistryPath(_T("Other"));
    EXPECT_EQ(m_atlas.RegistryPath, _T("Other"));
    EXPECT_EQ(ValueOf(_T("Other")), u"C:\\mine") << "the file in use is carried over";
}

TEST_F(Storage, OnlyATextIsAValidValue)
{
    const std::u16string longest(1023, u'x');
    const std::u16string byDefault = defaultPath;
    const std::tuple<DWORD, std::string, std::u16string> cases[] = {
        {test::binaryType, Bytes({u"x\0", 2}), byDefault}, // another type
        {REG_SZ, Bytes({u"x\0", 2}) + '\0', byDefault},    // an odd size
        {REG_SZ, Bytes(u"x"), byDefault},                  // no terminator
        {REG_SZ, Bytes(longest + u'\0'), longest},         // as long as the buffer
        {REG_SZ, Bytes(longest + u'x'), byDefault},        // as long, without one
        {REG_SZ, Bytes({u"x\0y\0", 4}), u"x"},             // read up to the first zero
        {REG_EXPAND_SZ, Bytes({u"\0", 1}), u""},           // an empty text is a path like any other
        {REG_SZ, "", u""},                                 // and so is a value of size 0
    };
    for (const auto& [type, bytes, path] : cases) {
        SetValue(subKey, type, bytes);
        m_atlas.FilePath = _T("before");
        EXPECT_EQ(m_atlas.Load({}), 1);
        EXPECT_EQ(m_atlas.FilePath, path.c_str()) << testing::PrintToString(bytes);
        EXPECT_TRUE(path != byDefault || ValueOf(subKey) == Value(byDefault))
            << testing::PrintToString(bytes);
    }
}

TEST_F(Storage, ADamagedFileIsToldAndLeavesTheBareCatalogue)
{
    std::string damaged = StyledFile();
    damaged[4] = 2; // read before the damage, and so in force when the catalogue is built again
    test::WriteWhole(m_prefix.Native(defaultFile), damaged.substr(0, damaged.size() - 1));
    EXPECT_EQ(m_atlas.Load({}), 1);
    EXPECT_TRUE(TableIsBare());
    EXPECT_EQ(m_atlas.GetRow(0)->Styles.GetSize(), 2);
    EXPECT_EQ(ValueOf(subKey), Value(defaultPath));
    EXPECT_EQ(m_messages.Messages(),
              std::vector(1, test::Message{u"Cannot load style atlas.", u"Error", MB_ICONEXCLAMATION}));
    std::filesystem::resize_file(m_prefix.Native(defaultFile), 1ULL << 40); // no blocks of its own
    EXPECT_EQ(m_atlas.Load({}), 0) << "what follows the rows is not read";
}

// Each is kept before the first save over it, in a copy of the table too; a file that was read is not.
TEST_F(Storage, AFileThatCouldNotBeReadIsKeptBesideTheNewOne)
{
    const auto native = [this](const char* end) { return m_prefix.Native(defaultFile).string() + end; };
    for (const char* const damaged : {"first", "second"}) {
        test::WriteWhole(native(""), damaged);
        m_atlas.Load({});
        k_StyleAtlas edited;
        edited.Assign(m_atlas);
        for (int i = 0; i < 2; ++i)
            edited.Save({});
        m_atlas.Load({});
        m_atlas.Save({});
    }
    EXPECT_EQ(test::ReadWhole(native(".damaged")), "first");
    EXPECT_EQ(test::ReadWhole(native(".damaged2")), "second");
    EXPECT_EQ(test::ReadWhole(native("~")), test::BytesOf(m_atlas));
    EXPECT_EQ(test::EntryCount(m_prefix.Native(defaultFile).parent_path()), 4);
    for (int number = 3; number < 100; ++number)
        test::WriteWhole(native(".damaged") + std::to_string(number), "");
    test::WriteWhole(native(""), "one too many");
    m_atlas.Load({});
    m_atlas.Save({});
    EXPECT_EQ(test::ReadWhole(native("")), "one too many");
    EXPECT_EQ(m_messages.Messages().back().Text, u"Cannot save style atlas");
}

TEST_F(Storage, WithoutARegistryTheDefaultPathServes)
{
    for (const char* const file : {"registry.db", "registry.db.damaged"}) // nor room to put it aside
        test::WriteWhole(m_prefix.Path() / file, "this is no registry");
    test::WriteWhole(m_prefix.Native(defaultFile), StyledFile());
    EXPECT_EQ(m_atlas.Load({}), 0);
    EXPECT_EQ(m_atlas.FilePath, defaultPath);
    EXPECT_TRUE(m_atlas.SetFilePath(_T("C:\\mine")));
    EXPECT_EQ(m_atlas.FilePath, _T("C:\\mine"));
    EXPECT_EQ(test::ReadWhole(m_prefix.Path() / "registry.db"), "this is no registry");
}

TEST_F(Storage, ADefaultPathBeyondTheBufferIsCutAtAWholeCharacter)
{
    // The path up to the name has 23 characters, so that the 1023rd falls inside a pair of surrogates.
    const std::u16string head = u"C:\\ProgramData\\Halvorn\\";
    const std::u16string name(1023 - 1 - head.size(), u'n');
    g_ApplicationName = (name + u"\U0001F600 and more").c_str();
    EXPECT_EQ(m_atlas.Load({}), 1);
    EXPECT_EQ(m_atlas.FilePath, (head + name).c_str());
    g_ApplicationName.Empty(); // a host without a name has its file in the common folder
    m_atlas.Load({});
    EXPECT_EQ(m_atlas.FilePath, _T("C:\\ProgramData\\Halvorn\\Style.Atlas"));
}

TEST_F(Storage, SavingWritesTheTableAndThenTakesThePath)
{
    m_atlas.Load({});
    EXPECT_FALSE(m_atlas.Save({}));
    EXPECT_EQ(test::ReadWhole(m_prefix.Native(defaultFile)), test::BytesOf(m_atlas));
    EXPECT_FALSE(m_atlas.Save(_T("C:\\copy")));
    EXPECT_EQ(test::ReadWhole(m_prefix.Native("copy")), test::BytesOf(m_atlas));
    EXPECT_EQ(m_atlas.FilePath, _T("C:\\copy"));
    EXPECT_EQ(ValueOf(subKey), Value(defaultPath)); // only SetFilePath writes it
    EXPECT_FALSE(m_atlas.Save(_T("C:\\no folder\\copy")));
    EXPECT_EQ(m_atlas.FilePath, _T("C:\\copy"));
    m_atlas.FilePath.Empty();
    EXPECT_FALSE(m_atlas.Save({}));
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(Storage, AUserWithAValueGetsThatUsersFileAndOneWithoutInheritsTheFileInUse)
{
    test::WriteWhole(m_prefix.Native("theirs"), StyledFile());
    SetText(_T("S-1\\Software\\Halvorn"), u"C:\\theirs");
    m_atlas.Load({});
    m_atlas.ChangeUserInfo(_T("S-1\\"), _T("Software\\Halvorn")); // no second backslash
    EXPECT_EQ(m_atlas.RegistryPath, _T("S-1\\Software\\Halvorn"));
    EXPECT_EQ(m_atlas.FilePath, _T("C:\\theirs"));
    EXPECT_TRUE(TableCameFromFile());

    m_atlas.ChangeUserInfo(_T("S-2"), _T("Software"));
    EXPECT_EQ(ValueOf(_T("S-2\\Software")), u"C:\\theirs");
    EXPECT_TRUE(TableCameFromFile());

    SetValue(_T("S-3\\Software"), test::binaryType, "xx");
    m_atlas.ChangeUserInfo(_T("S-3"), _T("Software"));
    EXPECT_EQ(ValueOf(_T("S-3\\Software")), u"C:\\theirs");

    m_atlas.ChangeUserInfo({}, _T("rootless"));
    EXPECT_EQ(m_atlas.RegistryPath, _T("\\rootless"));

    k_StyleAtlas fresh; // for which nothing was loaded before
    fresh.ChangeUserInfo(_T("S-4"), _T("Software"));
    EXPECT_EQ(ValueOf(_T("S-4\\Software")), Value(u""));
    EXPECT_TRUE(fresh.FilePath.IsEmpty());
    EXPECT_EQ(fresh.GetRowStyle(1, 0)->SymbolShape, 2); // by default
}

} // namespace
