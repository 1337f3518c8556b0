/*
 * The interface of the design standards for callers in other languages: two functions, plain types.
 * C99.
 *
 * 1. Every failure is the result 0; nothing is thrown, nothing is printed.
 * 2. Words are those of the data files, case-sensitive: action types ("SNOW", "LM71"), design codes
 *    ("EC", "DIN-EN"), structures ("BUILDING", "ROADWAY", "RAILWAY1" ...).
 * 3. Both functions use one catalogue of the process, loaded once. The settings of the process do
 *    not touch it. Several threads may ask for values; none while a file is loaded.
 */
#ifndef ZELSTANDARD_FLAT_H
#define ZELSTANDARD_FLAT_H

#include <stddef.h>

#include <zelstandard/Export.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The number of factors that ZelStandardGetCombValues writes, without unit, in this order:
   gamma sup, gamma inf, psi0, psi1, psi2, psi11, psi21, psi22, crack reduction. */
#define ZELSTANDARD_FACTORS 9

/*
 * Loads an action type file, plain or enciphered. The first file that holds action types is kept
 * for the life of the process; later calls ignore their path. A null path loads nothing.
 *
 * Returns 1 when action types are loaded, else 0.
 */
ZELSTANDARD_API int ZelStandardInitialiseFile(const char* path);

/*
 * Gives the nine factors of an action type.
 *
 * structure: "BUILDING" for the factors of buildings. Any other text asks for those of a bridge of
 *            that type; an unknown one for a bridge without a type, which has none as a rule.
 * values:    receives the nine factors; untouched when the result is 0.
 * count:     the number of doubles that values can hold; at least 9.
 *
 * Returns 1 when the factors were written; 0 when nothing is loaded, a pointer is null, count is
 * less than 9, the action or code is unknown, or the type has no factors for the code and the
 * structure.
 */
ZELSTANDARD_API int ZelStandardGetCombValues(const char* actionType, const char* mode,
                                             const char* structure, double* values, size_t count);

#ifdef __cplusplus
}
#endif

#endif
