// The init block of a dialog: the initial contents of its controls. It has the number of the dialog.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

// Messages in a block have the numbers of the 16-bit system. This one adds a text to the list of a combo box.
constexpr std::uint16_t initAddToComboBox = 0x0403;

struct DialogInitEntry {
    std::uint16_t ControlId;
    std::uint16_t Message;
    std::u16string Text;
};

// Reads a resource of type DialogInit and gives its entries in order. The texts in the block are taken for
// UTF-8. Gives nothing if the bytes end too early or a text has no terminator. Throws std::bad_alloc.
std::optional<std::vector<DialogInitEntry>> ReadDialogInit(std::span<const std::byte> bytes);
