/* The interface of the unit library: the quantities that can be measured, with their symbols and names.
 *
 * The quantities stand in a text file, the catalogue: the one that the environment variable MENSURA_CATALOGUE
 * names, else the one installed with the library. It is read at first use, and again by MensuraGetQuantitiesW
 * if the variable or the file has changed.
 *
 * Strings are zero-terminated UTF-16. Returned pointers belong to the library and are valid until the next
 * call of MensuraGetQuantitiesW or MensuraChangeUserInfoW. Calls must not overlap.
 *
 * A program that links the library uses the names below. One that loads it at run time finds all functions
 * in the exported table "ModuleExports", an array of MensuraExport: two by names that no linker accepts, the
 * others by their own, under which the loader finds them too.
 */
#ifndef MENSURA_H
#define MENSURA_H

#include <stdint.h>
#ifndef __cplusplus
#include <uchar.h>
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* The sub-quantity of a quantity as a whole. */
#define MENSURA_WHOLE_QUANTITY 65535u

/* What MensuraGetSymbolW returns. */
enum MensuraTextMode {
    MENSURA_SYMBOL = 0,         /* the symbol, as for an axis or a list: "U_rms" */
    MENSURA_SYMBOL_AND_NAME = 1 /* the symbol, a blank, and the name in brackets */
};

/* Returns the list of quantities as five parallel arrays of *count elements, null for an empty list. Lines of
 * the catalogue with errors are left out and reported on standard error. */
void MensuraGetQuantitiesW(uint16_t** devices, uint16_t** quantities, int** subQuantities, uint16_t** indexes,
                           uint32_t** flags, int* count);

/* Returns the display text of a quantity, never null: "#" and its number if the catalogue lacks it. Of
 * quantity, subQuantity and device the low 16 bits count, of index the low 8. MENSURA_WHOLE_QUANTITY as
 * subQuantity asks for the quantity as a whole. */
const char16_t* MensuraGetSymbolW(uint32_t quantity, uint32_t subQuantity, uint32_t flags, uint32_t device,
                                  uint32_t index, int mode);

/* Returns the full name of a quantity in the same way; empty if the catalogue lacks it. */
const char16_t* MensuraGetNameW(uint32_t quantity, uint32_t subQuantity, uint32_t flags, uint32_t device,
                                uint32_t index);

/* To be called when another user's settings apply: the catalogue is read again at the next call. The
 * arguments, the user's root and key and a word of options, are ignored. */
void MensuraChangeUserInfoW(const char16_t* userRoot, const char16_t* subKey, uint16_t options);

/* An entry of the table "ModuleExports": a function and the name by which it is bound at run time. The last
 * entry is all null. */
struct MensuraExport {
    const char* Name;
    void* Address;
};

#ifdef __cplusplus
}
#endif

#endif
