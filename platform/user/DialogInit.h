// What a dialog's controls are filled with as it opens: its init block, which stands under the dialog's own
// number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

// The messages in a block keep their numbers of 16-bit days, whatever the control takes today. This one adds
// a text to the list of a combo box.
constexpr std::uint16_t initAddToComboBox = 0x0403;

struct DialogInitEntry {
    std::uint16_t ControlId;
    std::uint16_t Message;
    std::u16string Text;
};

// Reads a resource of type DialogInit and gives its entries in order. The texts are 8 bits wide in the block
// and are taken for UTF-8. Gives nothing where the bytes end too early or a text has no terminator. Throws
// std::bad_alloc.
std::optional<std::vector<DialogInitEntry>> ReadDialogInit(std::span<const std::byte> bytes);
