/*
 * Loads the library by LoadLibraryA and calls its two functions by their undecorated names, as a
 * host does that has neither header nor import library. C99.
 *
 *   load_library DLL ACTION-TYPE-FILE
 */
#include <stdio.h>

#include <windows.h>

typedef int (*InitialiseFile)(const char* path);
typedef int (*GetCombValues)(const char* action, const char* code, const char* structure,
                             double* values, size_t count);

static int failures = 0;

static void check(int holds, const char* what)
{
    if (!holds) {
        fprintf(stderr, "load_library: %s\n", what);
        ++failures;
    }
}

/* Whether the values from the given place to the end of the block are as they were. */
static int untouched(const double* values, size_t from)
{
    size_t i;
    for (i = from; i < 20; ++i)
        if (values[i] != -1)
            return 0;
    return 1;
}

int main(int argc, char** argv)
{
    HMODULE library;
    InitialiseFile initialise;
    GetCombValues get;
    double values[20];
    size_t i;

    if (argc != 3) {
        fprintf(stderr, "usage: %s DLL ACTION-TYPE-FILE\n", argv[0]);
        return 2;
    }
    library = LoadLibraryA(argv[1]);
    if (!library) {
        fprintf(stderr, "%s does not load: error %lu\n", argv[1], GetLastError());
        return 1;
    }
    initialise =
        (InitialiseFile)(void (*)(void))GetProcAddress(library, "ZelStandardInitialiseFile");
    get = (GetCombValues)(void (*)(void))GetProcAddress(library, "ZelStandardGetCombValues");
    if (!initialise || !get) {
        fprintf(stderr, "%s lacks the undecorated functions\n", argv[1]);
        return 1;
    }

    for (i = 0; i < 20; ++i)
        values[i] = -1;
    check(get("SNOW", "EC", "BUILDING", values, 20) == 0, "no answer before a file is loaded");
    check(initialise("no such file.xml") == 0, "a missing file loads nothing");
    check(initialise(argv[2]) == 1, "the action type file loads");
    check(get("SNOW", "EC", "BUILDING", values, 8) == 0, "eight values are too few");
    check(get("HAIL", "EC", "BUILDING", values, 20) == 0, "an unknown action has no factors");
    check(untouched(values, 0), "a failure leaves the values alone");
    check(get("SNOW", "EC", "BUILDING", values, 20) == 1, "snow on a building has factors");
    check(values[0] == 1.5 && values[2] == 0.5, "gamma sup 1.5 and psi0 0.5 (EN 1990 A1.1, A1.2)");
    check(values[8] != -1 && untouched(values, 9), "nine values and no more");
    check(initialise("no such file.xml") == 1, "the first file stays");

    check(FreeLibrary(library) != 0, "the library unloads");
    if (failures == 0)
        printf("the library serves a caller that knows two names\n");
    return failures == 0 ? 0 : 1;
}
