// The unit library: intact and damaged catalogues, and the best match of a quantity.
#include "support/TempPrefix.h"

#include "mensura.h"

#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <thread>

namespace
{

namespace fs = std::filesystem;

struct Key {
    std::uint16_t device, quantity;
    int subQuantity;
    std::uint16_t index;
    std::uint32_t flags;
    bool operator==(const Key&) const = default;
};

constexpr int Whole = MENSURA_WHOLE_QUANTITY;

// Each test has its own folder and catalogue.
class Mensura : public testing::Test
{
protected:
    void Use(const fs::path& file) const { m_variable.Put(file.c_str()); }

    // The list; the diagnostics on standard error go to m_diagnostics.
    std::vector<Key> List()
    {
        std::uint16_t* words[3] = {};
        int* subQuantities = nullptr;
        std::uint32_t* flags = nullptr;
        int count = -1;
        testing::internal::CaptureStderr();
        MensuraGetQuantitiesW(&words[0], &words[1], &subQuantities, &words[2], &flags, &count);
        m_diagnostics = testing::internal::GetCapturedStderr();
        std::vector<Key> keys;
        for (int i = 0; i < count; ++i)
            keys.push_back({words[0][i], words[1][i], subQuantities[i], words[2][i], flags[i]});
        EXPECT_EQ(keys.empty(), words[0] == nullptr);
        m_devices = words[0];
        return keys;
    }

    std::vector<Key> List(std::string_view content)
    {
        test::WriteWhole(m_file, content);
        Use(m_file);
        return List();
    }

    static std::u16string Symbol(const Key& key, int mode = MENSURA_SYMBOL)
    {
        const auto sub = static_cast<std::uint32_t>(key.subQuantity);
        return MensuraGetSymbolW(key.quantity, sub, key.flags, key.device, key.index, mode);
    }

    static std::u16string Name(const Key& key)
    {
        const auto sub = static_cast<std::uint32_t>(key.subQuantity);
        return MensuraGetNameW(key.quantity, sub, key.flags, key.device, key.index);
    }

    std::string Diagnostic(std::string_view rest) const
    {
        return "mensura: " + m_file.string() + std::string{rest} + "\n";
    }

    const test::TempPrefix m_prefix;
    const test::ScopedVariable m_variable{"MENSURA_CATALOGUE", nullptr};
    const fs::path m_file = m_prefix.Path() / "catalogue";
    std::string m_diagnostics;
    const std::uint16_t* m_devices = nullptr;
};

TEST_F(Mensura, AcceptsEveryWayOfWritingALine)
{
    const std::pair<std::string_view, Key> lines[] = {
        {"1;2;3;4;5;U;Voltage", {1, 2, 3, 4, 5}},
        {"\t 1 ; 2 ;3 ; 4;5 ;U; Voltage \r", {1, 2, 3, 4, 5}},
        {"0xFFFF;0Xa;0xff;0x0;0xFFFFFFFF;U;Voltage", {65535, 10, 255, 0, 4294967295}},
        {"-1;0;0;0;0;U;Voltage", {65535, 0, 0, 0, 0}},
        {"\xEF\xBB\xBF"
         "0;0;0;0;0;U;Voltage",
         {0, 0, 0, 0, 0}},
        {"\n\r\n  # 9;9;9;9;9;x;y\n*;7;*;*;0;all;All\n0;7;0;0;0;U;Voltage", {0, 7, 0, 0, 0}}};
    for (const auto& [line, key] : lines) {
        EXPECT_EQ(List(line), std::vector{key}) << line;
        EXPECT_EQ(m_diagnostics, "") << line;
        EXPECT_EQ(Symbol(key), u"U") << line;
        EXPECT_EQ(Name(key), u"Voltage") << line;
    }
    List("0;1;0;0;0;cos φ 𝛥;µ\n0;2;0;0;0;n;");
    EXPECT_EQ(Symbol({0, 1, 0, 0, 0}, MENSURA_SYMBOL_AND_NAME), u"cos φ 𝛥 (µ)");
    EXPECT_EQ(Symbol({0, 2, 0, 0, 0}, MENSURA_SYMBOL_AND_NAME), u"n");
}

TEST_F(Mensura, ReportsErrorsInALineAndKeepsTheOthers)
{
    const std::pair<std::string, std::string_view> lines[] = {
        {"1;2;3;4;5;U", "expected 7 fields, found 6"},
        {"65536;2;3;4;5;U;", "device \"65536\" is not a number from 0 to 65535"},
        {"1;2;256;4;5;U;", "sub-quantity \"256\" is not a number from 0 to 255"},
        {"1;2;*;4;*;U;", "a quantity as a whole has * or 0 for index and flags, not \"4\""},
        {"1;2;3;4;5; ;Voltage", "the symbol is empty"},
        {"1;2;3;4;5;U;\xE2\x82", "name is not valid UTF-8"},
        {"1;2;3;4;5;\xED\xA0\x80;", "symbol is not valid UTF-8"}, // a surrogate
        {"1;2;3;4;5;U;a\x1b[31m", "name holds a control character"},
        {std::string(4097, '#'), "the line is longer than 4096 bytes"}};
    const std::vector<Key> neighbours = {{0, 1, 0, 0, 0}, {0, 3, 0, 0, 0}};
    for (const auto& [line, reason] : lines) {
        EXPECT_EQ(List("0;1;0;0;0;a;\n" + line + "\n0;3;0;0;0;c;"), neighbours) << line;
        EXPECT_EQ(m_diagnostics, Diagnostic(":2: " + std::string{reason})) << line;
    }
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
        {{1, 10, 1, 2, 8}, u"exact"},          {{1, 10, 1, 2, 9}, u"first"},
        {{1, 10, 2, 2, 8}, u"any device"},     {{2, 10, 2, 0, 0}, u"whole of 2"},
        {{2, 10, Whole, 0, 0}, u"whole of 2"}, {{9, 10, 1, 0, 0}, u"any device"},
        {{9, 20, Whole, 0, 0}, u"only"},       {{1, 11, 1, 2, 8}, u"#11"}};
    for (const auto& [key, symbol] : cases)
        EXPECT_EQ(Symbol(key), symbol);
    EXPECT_EQ(Name({1, 11, 1, 2, 8}), u"");

    // Arguments are wider than the values: the other bits are ignored.
    EXPECT_EQ(std::u16string{MensuraGetSymbolW(0x7000A, 0x50001, 8, 0xFFFF0001, 0x102, 0)}, u"exact");
    EXPECT_EQ(std::u16string{MensuraGetNameW(0x7000A, 0x50001, 8, 0xFFFF0001, 0x102)}, u"Exact");
}

TEST_F(Mensura, ReadsAgainOnlyWhatHasChanged)
{
    const auto shown = [] { return Symbol({0, 1, 0, 0, 0}); };
    EXPECT_EQ(List("0;1;0;0;0;a;\nbad").size(), 1U);
    EXPECT_NE(m_diagnostics, "");
    const std::uint16_t* const before = m_devices;
    List();
    EXPECT_EQ(m_diagnostics, "");
    EXPECT_EQ(m_devices, before);

    // Of the same size and with the same time, as programs that copy files leave it.
    const fs::file_time_type written = fs::last_write_time(m_file);
    std::this_thread::sleep_for(std::chrono::milliseconds{20}); // the resolution of file times
    test::WriteWhole(m_file, "0;1;0;0;0;b;\nbad");
    fs::last_write_time(m_file, written);
    EXPECT_EQ(shown(), u"a");
    List();
    EXPECT_EQ(shown(), u"b");

    // Another user's settings apply from the next call on.
    const fs::path next = m_prefix.Path() / "next";
    test::WriteWhole(next, "0;1;0;0;0;d;");
    Use(next);
    EXPECT_EQ(shown(), u"b");
    MensuraChangeUserInfoW(u"S-1-5-21", u"Software", 0);
    EXPECT_EQ(shown(), u"d");
}

TEST_F(Mensura, ReportsAnUnreadableFileOnce)
{
    const auto expectDiagnostic = [this](const char* reason) {
        Use(m_file);
        EXPECT_TRUE(List().empty());
        EXPECT_EQ(m_diagnostics, Diagnostic(reason));
        List();
        EXPECT_EQ(m_diagnostics, "");
    };
    expectDiagnostic(": No such file or directory");
    EXPECT_EQ(List("0;1;0;0;0;a;").size(), 1U);
    fs::resize_file(m_file, std::uintmax_t{1} << 40);
    expectDiagnostic(": too large");
    fs::resize_file(m_file, 16 << 20);
    expectDiagnostic(":1: the line is longer than 4096 bytes");
}

TEST_F(Mensura, BoundsTheNumberOfLinesAndOfMessages)
{
    std::string content;
    for (int i = 0; i < 25; ++i)
        content += "bad\n";
    List(content);
    EXPECT_EQ(std::ranges::count(m_diagnostics, '\n'), 21);
    content.clear();
    for (int i = 0; i < 70000; ++i)
        content += std::to_string(i % 1000) + ";1;0;0;0;a;\n";
    EXPECT_EQ(List(content).size(), 65535U);
    EXPECT_EQ(m_diagnostics,
              Diagnostic(":65536: more than 65535 lines; this one and all after it are left out"));
}

} // namespace
