// The entry points: everything that leaves the library. None lets an exception out, since a caller can be of
// any language.
// What the header declares and the table that it tells of are all that can be seen from outside.
#pragma GCC visibility push(default)
#include "mensura.h"
extern "C" const MensuraExport ModuleExports[];
#pragma GCC visibility pop

#include "Catalogue.h"
#include "CatalogueFile.h"

#include <StandardError.h>

#include <map>
#include <optional>
#include <string>
#include <utility>

namespace mensura
{
namespace
{

constexpr const char16_t* NoText = u"";
constexpr const char16_t* NameOfNoNumber = u"#";
constexpr std::uint32_t IndexMask = 0xFF;

// The catalogue in use, and what it was read from.
class UnitLibrary
{
public:
    Catalogue& Current()
    {
        if (!m_catalogue)
            Read(CataloguePath());
        return *m_catalogue;
    }

    // Reads again where another file is named, or the file is no longer the one that was read.
    Catalogue& Refreshed()
    {
        std::string path = CataloguePath();
        if (!m_catalogue || path != m_path || StampOf(path) != m_stamp)
            Read(std::move(path));
        return *m_catalogue;
    }

    void Forget()
    {
        m_catalogue.reset();
        m_numbers.clear();
    }

    // What stands for a quantity that the catalogue does not have.
    const char16_t* NumberText(std::uint16_t quantity)
    {
        const auto [place, isNew] = m_numbers.try_emplace(quantity, NameOfNoNumber);
        if (isNew) {
            for (const char digit : std::to_string(quantity))
                place->second += static_cast<char16_t>(digit);
        }
        return place->second.c_str();
    }

private:
    void Read(std::string path)
    {
        Forget();
        m_path = std::move(path);
        // Taken first: a file that is changed while it is read is then read again.
        m_stamp = StampOf(m_path);
        m_catalogue = ReadCatalogue(m_path);
    }

    std::optional<Catalogue> m_catalogue;
    std::string m_path;
    std::optional<FileStamp> m_stamp;
    std::map<std::uint16_t, std::u16string> m_numbers; // the texts handed out by NumberText
};

// Never destroyed: a program may ask for units while its own objects are being destroyed.
UnitLibrary& Library()
{
    static auto& library = *new UnitLibrary;
    return library;
}

void TellOfFailure()
{
    WriteToStandardError("mensura: not enough memory for the catalogue\n");
}

QuantityKey KeyOf(std::uint32_t quantity, std::uint32_t subQuantity, std::uint32_t flags,
                  std::uint32_t device, std::uint32_t index)
{
    return {static_cast<std::uint16_t>(quantity), static_cast<std::uint16_t>(subQuantity),
            static_cast<std::uint16_t>(device), static_cast<std::uint16_t>(index & IndexMask), flags};
}

} // namespace
} // namespace mensura

extern "C" {

void MensuraGetQuantitiesW(uint16_t** devices, uint16_t** quantities, int** subQuantities, uint16_t** indexes,
                           uint32_t** flags, int* count)
{
    *devices = *quantities = *indexes = nullptr;
    *subQuantities = nullptr;
    *flags = nullptr;
    *count = 0;
    try {
        mensura::QuantityArrays& arrays = mensura::Library().Refreshed().Arrays();
        if (arrays.devices.empty())
            return;
        *devices = arrays.devices.data();
        *quantities = arrays.quantities.data();
        *subQuantities = arrays.subQuantities.data();
        *indexes = arrays.indexes.data();
        *flags = arrays.flags.data();
        *count = static_cast<int>(arrays.devices.size());
    } catch (...) {
        mensura::TellOfFailure();
    }
}

const char16_t* MensuraGetSymbolW(uint32_t quantity, uint32_t subQuantity, uint32_t flags, uint32_t device,
                                  uint32_t index, int mode)
{
    try {
        mensura::UnitLibrary& library = mensura::Library();
        const mensura::QuantityKey key = mensura::KeyOf(quantity, subQuantity, flags, device, index);
        const mensura::QuantityTexts* const texts = library.Current().Find(key);
        if (texts == nullptr)
            return library.NumberText(key.quantity);
        return (mode == MENSURA_SYMBOL_AND_NAME ? texts->symbolAndName : texts->symbol).c_str();
    } catch (...) {
        mensura::TellOfFailure();
        return mensura::NameOfNoNumber;
    }
}

const char16_t* MensuraGetNameW(uint32_t quantity, uint32_t subQuantity, uint32_t flags, uint32_t device,
                                uint32_t index)
{
    try {
        const mensura::QuantityKey key = mensura::KeyOf(quantity, subQuantity, flags, device, index);
        const mensura::QuantityTexts* const texts = mensura::Library().Current().Find(key);
        return texts == nullptr ? mensura::NoText : texts->name.c_str();
    } catch (...) {
        mensura::TellOfFailure();
        return mensura::NoText;
    }
}

void MensuraChangeUserInfoW(const char16_t*, const char16_t*, uint16_t)
{
    try {
        mensura::Library().Forget();
    } catch (...) {
        mensura::TellOfFailure();
    }
}

const MensuraExport ModuleExports[] = {
    {"@MensuraChangeUserInfoW$qqspbt1us", reinterpret_cast<void*>(&MensuraChangeUserInfoW)},
    {"@MensuraGetQuantitiesW$qqsrpust1rpit1rpulri", reinterpret_cast<void*>(&MensuraGetQuantitiesW)},
    {"MensuraGetSymbolW", reinterpret_cast<void*>(&MensuraGetSymbolW)},
    {"MensuraGetNameW", reinterpret_cast<void*>(&MensuraGetNameW)},
    {nullptr, nullptr},
};

} // extern "C"
