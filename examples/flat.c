/*
 * Asks the flat interface for the factors of a few actions. C99.
 *
 *   flat ACTION-TYPE-FILE [ACTION CODE STRUCTURE]
 */
#include <stdio.h>

#include <zelstandard/flat.h>

static int print(const char* action, const char* code, const char* structure)
{
    double values[ZELSTANDARD_FACTORS];
    if (!ZelStandardGetCombValues(action, code, structure, values, ZELSTANDARD_FACTORS)) {
        printf("%-10s %-7s %-11s no factors\n", action, code, structure);
        return 0;
    }
    printf("%-10s %-7s %-11s gamma sup %.2f  gamma inf %.2f  psi0 %.2f  psi1 %.2f  psi2 %.2f\n",
           action, code, structure, values[0], values[1], values[2], values[3], values[4]);
    return 1;
}

int main(int argc, char** argv)
{
    if (argc != 2 && argc != 5) {
        fprintf(stderr, "usage: %s ACTION-TYPE-FILE [ACTION CODE STRUCTURE]\n", argv[0]);
        return 2;
    }
    if (!ZelStandardInitialiseFile(argv[1])) {
        fprintf(stderr, "%s: no action types found; give the path of an action type file\n",
                argv[1]);
        return 1;
    }
    if (argc == 5)
        return print(argv[2], argv[3], argv[4]) ? 0 : 1;

    print("G1", "EC", "BUILDING");
    print("SNOW", "EC", "BUILDING");
    print("SNOW", "DIN-EN", "BUILDING");
    print("LW", "EC", "BUILDING");
    print("LW", "DIN-EN", "BUILDING");
    print("LM71", "EC", "RAILWAY1");
    print("LM71", "EC", "BUILDING");
    return 0;
}
