// The table of styles as a host has it: the catalogue of the unit library, and a layout file over it.
#pragma once

#include <model/StyleAtlas.h>

#include <set>
#include <string>

namespace atlaslayout
{

class HostTable
{
public:
    // Loads the table of a layout file or, without one, of a host; without both, the default styles. Nothing
    // is written. Throws std::runtime_error if the file can't be read. Null stands for none.
    HostTable(const char* path, const char* hostName);

    const k_StyleAtlas& Atlas() const { return m_atlas; }

    // Where the styles come from, in words.
    const std::string& Origin() const { return m_origin; }

    // Whether the layout file is damaged, so that the host gets the bare catalogue.
    bool IsDamaged() const { return m_isDamaged; }

    // Whether there is a layout file that lacks this row, so that the catalogue's own stands.
    bool IsNotInFile(const QuantityKey& key) const { return m_hasFile && !m_stored.contains(key); }

private:
    void Read(const std::string& path);

    k_StyleAtlas m_atlas;
    std::string m_origin;
    std::set<QuantityKey> m_stored;
    bool m_hasFile = false;
    bool m_isDamaged = false;
};

} // namespace atlaslayout
