/** @file
 * The interface of the unit library: the quantities that can be measured, with their symbols and names.
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

/** The sub-quantity of a quantity as a whole. */
#define MENSURA_WHOLE_QUANTITY 65535u

/** What MensuraGetSymbolW() returns. */
enum MensuraTextMode {
    MENSURA_SYMBOL = 0,         /**< the symbol, as for an axis or a list: "U_rms" */
    MENSURA_SYMBOL_AND_NAME = 1 /**< the symbol, a blank, and the name in brackets */
};

/** Gets the list of quantities as five parallel arrays. Lines of the catalogue with errors are left out and
 * reported on standard error. The arrays belong to the library; for an empty list they are null.
 * @param[out] devices device of each quantity, 65535 for none
 * @param[out] quantities its number
 * @param[out] subQuantities its sub-quantity, or MENSURA_WHOLE_QUANTITY
 * @param[out] indexes its index
 * @param[out] flags its flags
 * @param[out] count number of elements in each array */
void MensuraGetQuantitiesW(uint16_t** devices, uint16_t** quantities, int** subQuantities, uint16_t** indexes,
                           uint32_t** flags, int* count);

/** Gets the display text of a quantity.
 * @param quantity the quantity: the low 16 bits count
 * @param subQuantity its sub-quantity: the low 16 bits count; MENSURA_WHOLE_QUANTITY for the quantity as a
 * whole
 * @param flags its flags
 * @param device its device: the low 16 bits count
 * @param index its index: the low 8 bits count
 * @param mode a number of ::MensuraTextMode
 * @returns the text, which belongs to the library; "#" and the number of the quantity if the catalogue lacks
 * it, never null */
const char16_t* MensuraGetSymbolW(uint32_t quantity, uint32_t subQuantity, uint32_t flags, uint32_t device,
                                  uint32_t index, int mode);

/** Gets the full name of a quantity.
 * @param quantity, subQuantity, flags, device, index as for MensuraGetSymbolW()
 * @returns the name, which belongs to the library; empty if the catalogue lacks the quantity, never null */
const char16_t* MensuraGetNameW(uint32_t quantity, uint32_t subQuantity, uint32_t flags, uint32_t device,
                                uint32_t index);

/** To be called when another user's settings apply: the catalogue is read again at the next call.
 * @param userRoot, subKey, options the user's root and key and a word of options, all ignored */
void MensuraChangeUserInfoW(const char16_t* userRoot, const char16_t* subKey, uint16_t options);

/** An entry of the table "ModuleExports": a function and the name by which it is bound at run time. The last
 * entry is all null. */
struct MensuraExport {
    const char* Name; /**< as a program asks for it */
    void* Address;    /**< of the function */
};

#ifdef __cplusplus
}
#endif

#endif
