// The library's exports: the functions of the header and the table that it describes. None throws, as a
// caller may be written in any language.
#pragma GCC visibility push(default)
#include "mensura.h"
extern "C" const MensuraExport ModuleExports[];
#pragma GCC visibility pop

#include "UnitCatalogue.h"
#include "UnitCatalogueFile.h"

#include <StandardError.h>

#include <map>
#include <optional>
#include <string>
#include <utility>

namespace mensura
{

namespace
{

constexpr const char16_t* noText = u"";
constexpr const char16_t* numberMark = u"#";
constexpr std::uint32_t indexMask = 0xFF;

// The catalogue in use, and what it was read from.
class UnitLibrary
{
public:
    UnitCatalogue& Current()
    {
        if (!m_catalogue)
            Read(UnitCataloguePath());
        return *m_catalogue;
    }

    // Reads the catalogue again if its path or its stamp has changed.
    UnitCatalogue& Refreshed()
    {
        std::string path = UnitCataloguePath();
        if (!m_catalogue || path != m_path || StampOf(path) != m_stamp)
            Read(std::move(path));
        return *m_catalogue;
    }

    void Forget() { m_catalogue.reset(); }

    // The text of a quantity that the catalogue doesn't have.
    const char16_t* NumberText(std::uint16_t quantity)
    {
        const auto [place, isNew] = m_numbers.try_emplace(quantity, numberMark);
        if (isNew) {
            for (const char digit : std::to_string(quantity))
                place->second += static_cast<char16_t>(digit);
        }
        return place->second.c_str();
    }

private:
    void Read(std::string path)
    {
        // The stamp comes first, so that a file which changes while it is read is read again.
        const std::optional<FileStamp> stamp = StampOf(path);
        m_catalogue = ReadUnitCatalogue(path);
        m_path = std::move(path);
        m_stamp = stamp;
    }

    std::optional<UnitCatalogue> m_catalogue;
    std::string m_path;
    std::optional<FileStamp> m_stamp;
    std::map<std::uint16_t, std::u16string> m_numbers; // texts that NumberText has returned
};

// Never destroyed, as a program may call while its own static objects are being destroyed.
UnitLibrary& Library()
{
    static auto& library = *new UnitLibrary;
    return library;
}

// The result of the body; of one that throws, the failure.
template <class Result, class Body> Result Guarded(Result failure, Body body)
{
    try {
        return body();
    } catch (...) {
        WriteToStandardError("mensura: not enough memory for the catalogue\n");
        return failure;
    }
}

QuantityKey KeyOf(std::uint32_t quantity, std::uint32_t subQuantity, std::uint32_t flags,
                  std::uint32_t device, std::uint32_t index)
{
    return {static_cast<std::uint16_t>(quantity), static_cast<std::uint16_t>(subQuantity),
            static_cast<std::uint16_t>(device), static_cast<std::uint16_t>(index & indexMask), flags};
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
    *count = mensura::Guarded(0, [=] {
        mensura::QuantityArrays& arrays = mensura::Library().Refreshed().Arrays();
        if (arrays.Devices.empty())
            return 0;
        *devices = arrays.Devices.data();
        *quantities = arrays.Quantities.data();
        *subQuantities = arrays.SubQuantities.data();
        *indexes = arrays.Indexes.data();
        *flags = arrays.Flags.data();
        return static_cast<int>(arrays.Devices.size());
    });
}

const char16_t* MensuraGetSymbolW(uint32_t quantity, uint32_t subQuantity, uint32_t flags, uint32_t device,
                                  uint32_t index, int mode)
{
    return mensura::Guarded(mensura::numberMark, [=] {
        mensura::UnitLibrary& library = mensura::Library();
        const mensura::QuantityKey key = mensura::KeyOf(quantity, subQuantity, flags, device, index);
        const mensura::QuantityTexts* const texts = library.Current().Find(key);
        if (texts == nullptr)
            return library.NumberText(key.Quantity);
        return (mode == MENSURA_SYMBOL_AND_NAME ? texts->SymbolAndName : texts->Symbol).c_str();
    });
}

const char16_t* MensuraGetNameW(uint32_t quantity, uint32_t subQuantity, uint32_t flags, uint32_t device,
                                uint32_t index)
{
    return mensura::Guarded(mensura::noText, [=] {
        const mensura::QuantityKey key = mensura::KeyOf(quantity, subQuantity, flags, device, index);
        const mensura::QuantityTexts* const texts = mensura::Library().Current().Find(key);
        return texts == nullptr ? mensura::noText : texts->Name.c_str();
    });
}

void MensuraChangeUserInfoW(const char16_t*, const char16_t*, uint16_t)
{
    mensura::Guarded(0, [] {
        mensura::Library().Forget();
        return 0;
    });
}

const MensuraExport ModuleExports[] = {
    {"@MensuraChangeUserInfoW$qqspbt1us", reinterpret_cast<void*>(&MensuraChangeUserInfoW)},
    {"@MensuraGetQuantitiesW$qqsrpust1rpit1rpulri", reinterpret_cast<void*>(&MensuraGetQuantitiesW)},
    {"MensuraGetSymbolW", reinterpret_cast<void*>(&MensuraGetSymbolW)},
    {"MensuraGetNameW", reinterpret_cast<void*>(&MensuraGetNameW)},
    {nullptr, nullptr},
};

} // extern "C"
