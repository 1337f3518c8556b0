"""Asks the flat interface for the factors of an action, from Python.

usage: flat.py LIBRARY ACTION-TYPE-FILE ACTION CODE STRUCTURE
"""

import ctypes
import sys

NAMES = ("gamma sup", "gamma inf", "psi0", "psi1", "psi2", "psi11", "psi21", "psi22",
         "crack reduction")


def main():
    if len(sys.argv) != 6:
        sys.exit(__doc__)
    library = ctypes.CDLL(sys.argv[1])
    library.ZelStandardInitialiseFile.argtypes = [ctypes.c_char_p]
    library.ZelStandardGetCombValues.argtypes = [
        ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p, ctypes.POINTER(ctypes.c_double),
        ctypes.c_size_t]

    path, *words = (argument.encode() for argument in sys.argv[2:])
    if not library.ZelStandardInitialiseFile(path):
        sys.exit(f"{sys.argv[2]}: no action types found; give the path of an action type file")
    values = (ctypes.c_double * len(NAMES))()
    if not library.ZelStandardGetCombValues(*words, values, len(values)):
        sys.exit("no factors for " + " ".join(sys.argv[3:]))
    for name, value in zip(NAMES, values):
        print(f"{name:16}{value:.2f}")


if __name__ == "__main__":
    main()
