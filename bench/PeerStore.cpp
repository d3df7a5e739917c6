// Files by the bare calls of the system, and JSON by nlohmann-json.
#include "PeerStore.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <nlohmann/json.hpp>
#include <system_error>
#include <unistd.h>

using nlohmann::json;

namespace
{

constexpr mode_t fileMode = 0666;

[[noreturn]] void Fail(const char* what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

class Descriptor
{
public:
    Descriptor(const std::filesystem::path& path, int flags) : m_file(open(path.c_str(), flags, fileMode))
    {
        if (m_file < 0)
            Fail("open");
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { close(m_file); }

    operator int() const { return m_file; } // NOLINT(google-explicit-constructor): used as the number

private:
    int m_file;
};

json ToJson(const bench::PlainStyle& style)
{
    return {{"reserved", style.Reserved},
            {"lineColor", style.LineColor},
            {"symbolColor", style.SymbolColor},
            {"symbolShape", style.SymbolShape},
            {"symbolSize", style.SymbolSize},
            {"symbolFill", style.SymbolFill},
            {"lineStyle", style.LineStyle},
            {"lineWidth", style.LineWidth},
            {"useSymbolColor", style.UseSymbolColor}};
}

void FromJson(const json& object, bench::PlainStyle& style)
{
    object.at("reserved").get_to(style.Reserved);
    object.at("lineColor").get_to(style.LineColor);
    object.at("symbolColor").get_to(style.SymbolColor);
    object.at("symbolShape").get_to(style.SymbolShape);
    object.at("symbolSize").get_to(style.SymbolSize);
    object.at("symbolFill").get_to(style.SymbolFill);
    object.at("lineStyle").get_to(style.LineStyle);
    object.at("lineWidth").get_to(style.LineWidth);
    object.at("useSymbolColor").get_to(style.UseSymbolColor);
}

} // namespace

namespace bench
{

PlainTable BareLoad(const std::filesystem::path& path, std::size_t rows)
{
    {
        const Descriptor file(path, O_RDONLY);
        std::array<char, bareBufferSize> buffer;
        ssize_t got = 0;
        while ((got = read(file, buffer.data(), buffer.size())) > 0) {
        }
        if (got < 0)
            Fail("read");
    }
    return MakePlainTable(rows);
}

void ReplaceFile(const std::filesystem::path& path, std::string_view bytes, std::size_t chunkSize)
{
    const std::filesystem::path beside = path.native() + ".new";
    {
        const Descriptor file(beside, O_WRONLY | O_CREAT | O_TRUNC);
        for (; !bytes.empty(); bytes.remove_prefix(std::min(chunkSize, bytes.size()))) {
            const std::size_t count = std::min(chunkSize, bytes.size());
            if (write(file, bytes.data(), count) != static_cast<ssize_t>(count))
                Fail("write");
        }
        if (fsync(file) != 0)
            Fail("fsync");
    }
    if (std::rename(beside.c_str(), path.c_str()) != 0)
        Fail("rename");
    const Descriptor folder(path.parent_path(), O_RDONLY | O_DIRECTORY);
    if (fsync(folder) != 0)
        Fail("fsync");
}

void JsonSave(const std::filesystem::path& path, const PlainTable& table)
{
    json rows = json::array();
    for (const std::unique_ptr<PlainRow>& row : table) {
        json styles = json::array();
        for (std::int32_t i = 0; i < row->StyleCount; ++i)
            styles.push_back(ToJson(*row->Styles[static_cast<std::size_t>(i)]));
        rows.push_back({{"device", row->Device},
                        {"quantity", row->Quantity},
                        {"subQuantity", row->SubQuantity},
                        {"index", row->Index},
                        {"flags", row->Flags},
                        {"reserved", row->ReservedFlag},
                        {"level", row->Level},
                        {"styles", std::move(styles)}});
    }
    const std::string text = rows.dump();
    ReplaceFile(path, text, text.size());
}

PlainTable JsonLoad(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string text(std::filesystem::file_size(path), '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    const json rows = json::parse(text);
    PlainTable table;
    for (const json& object : rows) {
        std::unique_ptr<PlainRow> row = MakePlainRow();
        object.at("device").get_to(row->Device);
        object.at("quantity").get_to(row->Quantity);
        object.at("subQuantity").get_to(row->SubQuantity);
        object.at("index").get_to(row->Index);
        object.at("flags").get_to(row->Flags);
        object.at("reserved").get_to(row->ReservedFlag);
        object.at("level").get_to(row->Level);
        const json& styles = object.at("styles");
        for (std::size_t i = 0; i < plainColumns; ++i)
            FromJson(styles.at(i), *row->Styles[i]);
        table.push_back(std::move(row));
    }
    return table;
}

} // namespace bench
