#include "HostTable.h"

#include "LayoutReader.h"
#include "Texts.h"
#include "UnitBinding.h"

#include <bindings/terminal/Text.h>
#include <model/Host.h>
#include <model/HostSettings.h>
#include <platform/system/Paths.h>

#include <filesystem>
#include <stdexcept>

namespace atlaslayout
{
namespace
{

using namespace styleatlas::terminal;

std::string PathOfHost(const char* name)
{
    k_StyleAtlas settings;
    g_ApplicationName = ToUtf16(name).c_str();
    settings.RegistryPath = k_HostSettings::SubKeyOf(g_ApplicationName);
    return NativePath(settings.GetStoredFilePath().GetString());
}

bool IsThere(const std::string& path)
{
    std::error_code error;
    return std::filesystem::exists(path, error);
}

} // namespace

HostTable::HostTable(const char* path, const char* hostName)
{
    BindUnits();
    const std::string source = path != nullptr ? path : hostName != nullptr ? PathOfHost(hostName) : "";
    const std::string shownPath = Printable(source, NoLimit);
    if (path == nullptr && !IsThere(source)) {
        m_origin = source.empty() ? Text("the default styles")
                                  : Text("the default styles, as there is no layout file %1", {shownPath});
        WithStandardErrors([this] {
            m_atlas.BuildCatalogue();
            m_atlas.ApplyDefaultStyles();
        });
        return;
    }
    try {
        Read(source);
    } catch (const std::runtime_error& error) {
        throw std::runtime_error{shownPath + ": " + error.what()};
    }
    m_origin = m_isDamaged ? Text("the bare catalogue, as %1 is damaged; \"check\" says where", {shownPath})
                           : Text("the layout file %1", {shownPath});
}

void HostTable::Read(const std::string& path)
{
    LayoutReader reader{path.c_str()};
    while (const std::optional<LayoutRow> row = reader.Next())
        m_stored.insert(row->key);
    m_isDamaged = reader.Damage().has_value();
    m_hasFile = !m_isDamaged;
    WithStandardErrors([&] {
        m_atlas.BuildCatalogue();
        if (m_isDamaged)
            return;
        NativeFile file{path};
        CArchive archive{&file, CArchive::load};
        m_atlas.Serialize(archive);
    });
}

} // namespace atlaslayout
