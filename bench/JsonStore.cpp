// Writing and reading the table with nlohmann-json.
#include "JsonStore.h"

#include "BareStore.h"

#include <fstream>
#include <nlohmann/json.hpp>

using nlohmann::json;

namespace
{

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

void JsonSave(const std::filesystem::path& path, const PlainTable& table)
{
    json rows = json::array();
    for (const std::unique_ptr<PlainRow>& row : table) {
        json styles = json::array();
        for (std::int64_t i = 0; i < row->StyleCount; ++i)
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
