// The unit library as a stranger meets it: loaded at run time, reached through its table of entry points.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <new>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <dlfcn.h>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "mensura.h"

namespace
{

namespace fs = std::filesystem;

constexpr std::size_t NoFault = SIZE_MAX;
std::size_t g_allocationsLeft = NoFault;

} // namespace

// The library allocates through these too, so that a test can let the n-th allocation fail. Seen through,
// they look like a mismatch of new and free to the compiler.
[[gnu::noinline]] void* operator new(std::size_t size)
{
    if (g_allocationsLeft != NoFault && g_allocationsLeft-- == 0) {
        g_allocationsLeft = NoFault;
        throw std::bad_alloc{};
    }
    if (void* const memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc{};
}

[[gnu::noinline]] void operator delete(void* memory) noexcept
{
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace
{

struct Key {
    std::uint16_t device;
    std::uint16_t quantity;
    int subQuantity;
    std::uint16_t index;
    std::uint32_t flags;
    auto operator<=>(const Key&) const = default;
};

void PrintTo(const Key& key, std::ostream* out)
{
    *out << key.device << ';' << key.quantity << ';' << key.subQuantity << ';' << key.index << ';'
         << key.flags;
}

constexpr int Whole = MENSURA_WHOLE_QUANTITY;

// One library for all tests, as one process has it; each test has a folder and a catalogue of its own.
class Mensura : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        void* const library = dlopen(MENSURA_LIBRARY, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(library, nullptr) << dlerror();
        exports = static_cast<const ModuleExport*>(dlsym(library, "ModuleExports"));
        ASSERT_NE(exports, nullptr);
        changeUserInfo = Entry<decltype(changeUserInfo)>("@MensuraChangeUserInfoW$qqspbt1us");
        getQuantities = Entry<decltype(getQuantities)>("@MensuraGetQuantitiesW$qqsrpust1rpit1rpulri");
        getSymbol = Entry<decltype(getSymbol)>("MensuraGetSymbolW");
        getName = Entry<decltype(getName)>("MensuraGetNameW");
    }

    void SetUp() override
    {
        std::string folder = (fs::temp_directory_path() / "mensura-XXXXXX").string();
        ASSERT_NE(mkdtemp(folder.data()), nullptr);
        m_folder = folder;
        m_file = m_folder / "catalogue";
    }

    void TearDown() override
    {
        unsetenv("MENSURA_CATALOGUE");
        fs::remove_all(m_folder);
    }

    void Write(std::string_view content) const
    {
        std::ofstream{m_file, std::ios::binary} << content;
        Use(m_file);
    }

    static void Use(const fs::path& file) { setenv("MENSURA_CATALOGUE", file.c_str(), 1); }

    // The list, and what was told on standard error meanwhile.
    std::vector<Key> List()
    {
        std::array<std::uint16_t*, 3> words = {};
        int* subQuantities = nullptr;
        std::uint32_t* flags = nullptr;
        int count = -1;
        testing::internal::CaptureStderr();
        getQuantities(&words[0], &words[1], &subQuantities, &words[2], &flags, &count);
        m_told = testing::internal::GetCapturedStderr();
        std::vector<Key> keys;
        for (int i = 0; i < count; ++i)
            keys.push_back({words[0][i], words[1][i], subQuantities[i], words[2][i], flags[i]});
        EXPECT_EQ(keys.empty(), words[0] == nullptr);
        m_devices = words[0];
        return keys;
    }

    std::vector<Key> List(std::string_view content)
    {
        Write(content);
        return List();
    }

    static std::u16string Symbol(Key key, int mode = MENSURA_SYMBOL)
    {
        return getSymbol(key.quantity, static_cast<std::uint32_t>(key.subQuantity), key.flags, key.device,
                         key.index, mode);
    }

    static std::u16string Name(Key key)
    {
        return getName(key.quantity, static_cast<std::uint32_t>(key.subQuantity), key.flags, key.device,
                       key.index);
    }

    std::string Told(std::string_view rest) const
    {
        return "mensura: " + m_file.string() + std::string{rest} + "\n";
    }

    template <typename Function> static Function Entry(std::string_view name)
    {
        for (const ModuleExport* entry = exports; entry->Name != nullptr; ++entry) {
            if (entry->Name == name)
                return reinterpret_cast<Function>(entry->Address);
        }
        ADD_FAILURE() << name << " is missing";
        return nullptr;
    }

    static inline const ModuleExport* exports = nullptr;
    static inline decltype(&MensuraChangeUserInfoW) changeUserInfo = nullptr;
    static inline decltype(&MensuraGetQuantitiesW) getQuantities = nullptr;
    static inline decltype(&MensuraGetSymbolW) getSymbol = nullptr;
    static inline decltype(&MensuraGetNameW) getName = nullptr;

    fs::path m_folder;
    fs::path m_file;
    std::string m_told;
    const std::uint16_t* m_devices = nullptr;
};

TEST_F(Mensura, AcceptsEveryWayOfWritingALine)
{
    const std::pair<std::string_view, Key> lines[] = {
        {"1;2;3;4;5;U;Voltage", {1, 2, 3, 4, 5}},
        {"\t 1 ; 2 ;3 ; 4;5 ;U; Voltage \r", {1, 2, 3, 4, 5}},
        {"65535;65535;255;255;4294967295;U;Voltage", {65535, 65535, 255, 255, 4294967295}},
        {"0xFFFF;0Xa;0xff;0x0;0xFFFFFFFF;U;Voltage", {65535, 10, 255, 0, 4294967295}},
        {"-1;0;0;0;0;U;Voltage", {65535, 0, 0, 0, 0}},
        {"\xEF\xBB\xBF"
         "0;0;0;0;0;U;Voltage",
         {0, 0, 0, 0, 0}},
        {"\n\r\n  # 9;9;9;9;9;x;y\n0;1;0;0;0;U;Voltage", {0, 1, 0, 0, 0}},
        {"*;7;*;*;0;all;All\n0;7;0;0;0;U;Voltage", {0, 7, 0, 0, 0}},
    };
    for (const auto& [line, key] : lines) {
        EXPECT_EQ(List(line), std::vector{key}) << line;
        EXPECT_EQ(m_told, "") << line;
        EXPECT_EQ(Symbol(key), u"U") << line;
        EXPECT_EQ(Name(key), u"Voltage") << line;
    }
    List("0;1;0;0;0;cos φ 𝛥;µ\n0;2;0;0;0;n;");
    EXPECT_EQ(Symbol({0, 1, 0, 0, 0}), u"cos φ 𝛥");
    EXPECT_EQ(Symbol({0, 1, 0, 0, 0}, MENSURA_SYMBOL_AND_NAME), u"cos φ 𝛥 (µ)");
    EXPECT_EQ(Symbol({0, 2, 0, 0, 0}, MENSURA_SYMBOL_AND_NAME), u"n");
    EXPECT_EQ(Name({0, 2, 0, 0, 0}), u"");
}

TEST_F(Mensura, TellsWhatIsWrongWithALineAndKeepsTheOthers)
{
    using namespace std::string_literals;
    const std::pair<std::string, std::string_view> lines[] = {
        {"1;2;3;4;5;U", "expected 7 fields, found 6"},
        {"1;2;3;4;5;U;Voltage; ", "expected 7 fields, found 8"},
        {"65536;2;3;4;5;U;", "device \"65536\" is not a number from 0 to 65535"},
        {"-2;2;3;4;5;U;", "device \"-2\" is not a number from 0 to 65535"},
        {"*;2;3;4;5;U;", "device \"*\" is not a number from 0 to 65535"},
        {"1;;3;4;5;U;", "quantity \"\" is not a number from 0 to 65535"},
        {"1;0x;3;4;5;U;", "quantity \"0x\" is not a number from 0 to 65535"},
        {"1;2;256;4;5;U;", "sub-quantity \"256\" is not a number from 0 to 255"},
        {"1;2;3;4x;5;U;", "index \"4x\" is not a number from 0 to 255"},
        {"1;2;3;4;4294967296;U;", "flags \"4294967296\" is not a number from 0 to 4294967295"},
        {"1;2;3;4;99999999999999999999;U;",
         "flags \"99999999999999999999\" is not a number from 0 to 4294967295"},
        {"1;2;*;4;*;U;", "a quantity as a whole has * or 0 for index and flags, not \"4\""},
        {"1;2;3;4;5; ;Voltage", "the symbol is empty"},
        {"1;2;3;4;5;\xC0\xAF;", "symbol is not valid UTF-8"},
        {"1;2;3;4;5;\xED\xA0\x80;", "symbol is not valid UTF-8"},
        {"1;2;3;4;5;U;\xF4\x90\x80\x80", "name is not valid UTF-8"},
        {"1;2;3;4;5;U;\xE2\x82", "name is not valid UTF-8"},
        {"1;2;3;4;5;U;a\x1b[31m", "name holds a control character"},
        {"1;2;3;4;5;U\0V;"s, "symbol holds a control character"},
        {"1;\x1b[2J;3;4;5;U;", "quantity \"?[2J\" is not a number from 0 to 65535"},
        {std::string(4097, '#'), "the line is longer than 4096 bytes"},
    };
    const std::vector<Key> neighbours = {{0, 1, 0, 0, 0}, {0, 3, 0, 0, 0}};
    for (const auto& [line, reason] : lines) {
        EXPECT_EQ(List("0;1;0;0;0;a;\n" + line + "\n0;3;0;0;0;c;"), neighbours) << line;
        EXPECT_EQ(m_told, Told(":2: " + std::string{reason})) << line;
    }
}

TEST_F(Mensura, StopsTellingAfterTwentyLines)
{
    std::string content;
    for (int i = 0; i < 25; ++i)
        content += "bad\n";
    EXPECT_TRUE(List(content).empty());
    EXPECT_EQ(std::ranges::count(m_told, '\n'), 21);
    EXPECT_TRUE(m_told.ends_with(Told(":20: expected 7 fields, found 1") + Told(": ... and 5 more")))
        << m_told;
}

TEST_F(Mensura, GivesTheTextsThatFitBest)
{
    List("1;10;1;1;0;first;First\n"
         "1;10;1;2;8;exact;Exact\n"
         "1;10;1;2;8;again;Again\n"
         "2;10;1;0;0;other device;\n"
         "*;10;*;*;*;any device;\n"
         "2;10;*;0;0;whole of 2;\n"
         "2;10;*;0;0;once more;\n"
         "3;20;7;0;0;only;Only\n");
    const std::pair<Key, std::u16string_view> cases[] = {
        {{1, 10, 1, 2, 8}, u"exact"},
        {{1, 10, 1, 2, 9}, u"first"},
        {{1, 10, 1, 0, 8}, u"first"},
        {{1, 10, 2, 2, 8}, u"any device"},
        {{2, 10, 2, 0, 0}, u"whole of 2"},
        {{1, 10, Whole, 0, 0}, u"any device"},
        {{2, 10, Whole, 0, 0}, u"whole of 2"},
        {{9, 10, 1, 0, 0}, u"any device"},
        {{9, 20, Whole, 0, 0}, u"only"},
        {{3, 20, 8, 0, 0}, u"only"},
        {{1, 11, 1, 2, 8}, u"#11"},
        {{1, 65535, Whole, 0, 0}, u"#65535"},
    };
    for (const auto& [key, symbol] : cases)
        EXPECT_EQ(Symbol(key), symbol) << testing::PrintToString(key);
    EXPECT_EQ(Name({1, 11, 1, 2, 8}), u"");

    // Callers hand over wider words, of which only some bits are meant.
    EXPECT_EQ(std::u16string{getSymbol(0x7000A, 0x50001, 8, 0xFFFF0001, 0x102, 0)}, u"exact");
    EXPECT_EQ(std::u16string{getName(0x7000A, 0x50001, 8, 0xFFFF0001, 0x102)}, u"Exact");
}

TEST_F(Mensura, ReadsAgainOnlyWhatHasChanged)
{
    EXPECT_EQ(List("0;1;0;0;0;a;\nbad").size(), 1U);
    EXPECT_NE(m_told, "");
    const std::uint16_t* const before = m_devices;
    EXPECT_EQ(List().size(), 1U);
    EXPECT_EQ(m_told, "");
    EXPECT_EQ(m_devices, before);

    // The same size at another moment, however near.
    const fs::file_time_type time = fs::last_write_time(m_file);
    Write("0;1;0;0;0;b;\nbad");
    fs::last_write_time(m_file, time + std::chrono::microseconds{1});
    EXPECT_EQ(Symbol({0, 1, 0, 0, 0}), u"a");
    List();
    EXPECT_EQ(Symbol({0, 1, 0, 0, 0}), u"b");

    // Another file in its place, alike in size and time.
    std::ofstream{m_folder / "next"} << "0;1;0;0;0;c;\nbad";
    fs::last_write_time(m_folder / "next", time + std::chrono::microseconds{1});
    fs::rename(m_folder / "next", m_file);
    List();
    EXPECT_EQ(Symbol({0, 1, 0, 0, 0}), u"c");

    // Another user's settings are in force at the very next call.
    std::ofstream{m_folder / "users"} << "0;1;0;0;0;d;";
    Use(m_folder / "users");
    EXPECT_EQ(Symbol({0, 1, 0, 0, 0}), u"c");
    changeUserInfo(u"S-1-5-21", u"Software", 0);
    EXPECT_EQ(Symbol({0, 1, 0, 0, 0}), u"d");
}

TEST_F(Mensura, TellsOfAMissingFileOnce)
{
    Use(m_file);
    EXPECT_TRUE(List().empty());
    EXPECT_EQ(m_told, Told(": No such file or directory"));
    EXPECT_EQ(Symbol({0, 1, 0, 0, 0}), u"#1");
    EXPECT_TRUE(List().empty());
    EXPECT_EQ(m_told, "");
    EXPECT_EQ(List("0;1;0;0;0;a;").size(), 1U);
    fs::remove(m_file);
    EXPECT_TRUE(List().empty());
    EXPECT_NE(m_told, "");
}

TEST_F(Mensura, RefusesWhatIsNoOrdinaryFile)
{
    Use(m_file);
    ASSERT_EQ(mkfifo(m_file.c_str(), 0600), 0);
    EXPECT_TRUE(List().empty());
    EXPECT_EQ(m_told, Told(": not a regular file"));
    List();
    EXPECT_EQ(m_told, "");
    fs::remove(m_file);
    fs::create_directory(m_file);
    EXPECT_TRUE(List().empty());
    EXPECT_EQ(m_told, Told(": not a regular file"));
    fs::remove(m_file);
    EXPECT_TRUE(List("0;1;0;0;0;a;").size() == 1);
    fs::resize_file(m_file, std::uintmax_t{1} << 40);
    EXPECT_TRUE(List().empty());
    EXPECT_EQ(m_told, Told(": too large"));
    fs::resize_file(m_file, 16 << 20);
    EXPECT_TRUE(List().empty());
    EXPECT_EQ(m_told, Told(":1: the line is longer than 4096 bytes"));
}

TEST_F(Mensura, BoundsTheNumberOfLines)
{
    std::string content;
    for (int i = 0; i < 70000; ++i)
        content += std::to_string(i % 1000) + ";1;0;0;0;a;\n";
    EXPECT_EQ(List(content).size(), 65535U);
    EXPECT_EQ(m_told, Told(":65536: more than 65535 lines; this one and all after it are left out"));
}

TEST_F(Mensura, SurvivesEveryFailedAllocation)
{
    const fs::path other = m_folder / "another catalogue, with a name that is too long to be kept in place";
    std::ofstream{other} << "1;2;3;4;5;a symbol;a name of some length\n*;2;*;*;*;a whole quantity;\n6;bad";
    int faults = 0;
    for (bool hasFailed = true; hasFailed; ++faults) {
        Use(other);
        changeUserInfo(u"", u"", 0);
        std::array<std::uint16_t*, 3> words = {};
        int* subQuantities = nullptr;
        std::uint32_t* flags = nullptr;
        int count = -1;
        testing::internal::CaptureStderr();
        g_allocationsLeft = static_cast<std::size_t>(faults);
        getQuantities(&words[0], &words[1], &subQuantities, &words[2], &flags, &count);
        const char16_t* const known = getSymbol(2, 3, 5, 1, 4, 0);
        const char16_t* const unknown = getSymbol(50000, 3, 5, 1, 4, 0);
        hasFailed = g_allocationsLeft == NoFault;
        g_allocationsLeft = NoFault;
        testing::internal::GetCapturedStderr();
        ASSERT_NE(known, nullptr);
        ASSERT_NE(unknown, nullptr);
        ASSERT_TRUE(count == 0 ? words[0] == nullptr : count == 1 && words[0][0] == 1) << faults;
    }
    EXPECT_GT(faults, 10);
    EXPECT_EQ(Symbol({1, 2, 3, 4, 5}), u"a symbol");
}

TEST_F(Mensura, BringsItsOwnCatalogue)
{
    const std::vector<Key> keys = List();
    ASSERT_EQ(m_told, "");
    EXPECT_EQ(keys.size(), 171U);

    std::vector<int> runs; // a new one wherever the quantity changes
    std::set<std::u16string> symbols;
    std::map<std::pair<int, int>, std::vector<Key>> groups; // by quantity and device
    std::set<int> devices;
    for (const Key& key : keys) {
        if (runs.empty() || runs.back() != key.quantity)
            runs.push_back(key.quantity);
        const std::u16string symbol = Symbol(key);
        EXPECT_TRUE(symbols.insert(symbol).second) << testing::PrintToString(symbol) << " stands twice";
        EXPECT_EQ(symbol.find_first_of(u",\"\n"), std::u16string::npos) << "no head of a column";
        EXPECT_NE(Name(key), u"");
        groups[{key.quantity, key.device}].push_back(key);
        devices.insert(key.device);
    }
    EXPECT_EQ(runs.size(), 38U) << "each quantity in one place, and with a colour of its own";
    EXPECT_EQ(std::set(runs.begin(), runs.end()).size(), runs.size());
    EXPECT_EQ(devices, (std::set<int>{0, 1, 2, 3, 4, 5, 6, 7, 8}));

    for (const auto& [place, entries] : groups) {
        if (entries.size() < 2)
            continue;
        const std::u16string whole = Name({entries[0].device, entries[0].quantity, Whole, 0, 0});
        std::map<int, bool> hasHead; // by sub-quantity
        for (const Key& key : entries) {
            EXPECT_NE(Name(key), whole) << "no text for quantity " << place.first;
            hasHead[key.subQuantity] |= key.index == 0;
        }
        for (const auto& [subQuantity, isThere] : hasHead)
            EXPECT_TRUE(isThere || hasHead.size() == 1) << place.first << ", sub-quantity " << subQuantity;
    }
}

} // namespace
