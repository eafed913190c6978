#!/usr/bin/env python3
"""spectrum.py LIBRARY - the library from Python: the bins of a real signal, without numpy."""
import ctypes
import math
import sys

if len(sys.argv) != 2:
    print("usage: spectrum.py librvngenmx.so.6.1", file=sys.stderr)
    sys.exit(2)
library = ctypes.CDLL(sys.argv[1])
signal = (ctypes.c_double * 40)(*(math.cos(2 * math.pi * 3 * n / 40 + 0.5) for n in range(40)))
bins = (ctypes.c_double * 42)()  # CCS: pairs R(k), I(k), k from 0 to 20
scale = ctypes.c_int32(1)  # RvnScaleFwdByN
if library.rvngDFTFwd_RToCCS_40_64f(signal, bins, scale) != 0:
    sys.exit("spectrum.py: the transform failed")
strongest = max(range(21), key=lambda k: math.hypot(bins[2 * k], bins[2 * k + 1]))
tone = 2 * complex(*bins[2 * strongest:2 * strongest + 2])
print(f"bin {strongest}: amplitude {abs(tone):.3f}, phase {math.atan2(tone.imag, tone.real):.3f}")
sys.exit(strongest != 3 or abs(tone - complex(math.cos(0.5), math.sin(0.5))) > 1e-12)
