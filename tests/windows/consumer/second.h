#pragma once

/// What a library of the host's own sees of the design standards.
struct Sight {
    const void* standard;
    const void* words;
    const void* groups;
    const void* coefficients;
    const void* idCount;
    const void* label;
};

Sight sightOfSecondLibrary();
