/* mensura.h: the interface of the unit library, which knows the quantities that can be measured here.
 *
 * The list of quantities is a plain text table, the catalogue: the file that the environment variable
 * MENSURA_CATALOGUE names, else the one that is installed with the library. It is read when it is first
 * needed, and again when MensuraGetQuantitiesW finds that another file is named or that the file has changed.
 *
 * Strings are zero-terminated UTF-16. A pointer that a function hands out stays the library's; it is good
 * until the next call of MensuraGetQuantitiesW or MensuraChangeUserInfoW. Calls must not overlap.
 *
 * A program that links the library calls the functions by the names below. One that loads it at run time
 * finds the two names that no linker takes in the exported table "ModuleExports", an array of MensuraExport,
 * and the others there and by their own names.
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

/* SubQuantity that stands for a quantity as a whole. */
#define MENSURA_WHOLE_QUANTITY 65535u

/* What MensuraGetSymbolW gives. */
enum MensuraTextMode {
    MENSURA_SYMBOL = 0,         /* the symbol, as for an axis or a list: "U_rms" */
    MENSURA_SYMBOL_AND_NAME = 1 /* the symbol, a blank, and the name in brackets */
};

/* Gives the list of quantities as five parallel arrays of *count elements, null where the list is empty. The
 * arrays stay the library's. A line of the catalogue that cannot be understood is told on standard error and
 * left out. */
void MensuraGetQuantitiesW(uint16_t** devices, uint16_t** quantities, int** subQuantities, uint16_t** indexes,
                           uint32_t** flags, int* count);

/* Gives the display text of a quantity, never null. Of quantity, subQuantity, device and index only the low
 * 16 bits count (of index the low 8). subQuantity MENSURA_WHOLE_QUANTITY asks for the quantity as a whole. A
 * quantity that the catalogue lacks gives "#" and its number. */
const char16_t* MensuraGetSymbolW(uint32_t quantity, uint32_t subQuantity, uint32_t flags, uint32_t device,
                                  uint32_t index, int mode);

/* Gives the full name of a quantity in the same way; empty where the catalogue lacks it. */
const char16_t* MensuraGetNameW(uint32_t quantity, uint32_t subQuantity, uint32_t flags, uint32_t device,
                                uint32_t index);

/* Says that another user's settings apply from now on: what was read is forgotten, and read anew at the next
 * call. The arguments, the user's root and key and a word of options, are kept for nothing else. */
void MensuraChangeUserInfoW(const char16_t* userRoot, const char16_t* subKey, uint16_t options);

/* An entry of the table "ModuleExports": an entry point and the name by which it is bound at run time. The
 * last entry is all null. */
struct MensuraExport {
    const char* Name;
    void* Address;
};

#ifdef __cplusplus
}
#endif

#endif
