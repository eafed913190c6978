#!/usr/bin/env python3
"""numpy_check.py LIBRARY - the library from Python through ctypes, held against numpy.fft: every
length, layout, direction and precision."""
import ctypes
import sys

import numpy as np

if len(sys.argv) != 2:
    print("usage: numpy_check.py librvngenmx.so.6.1", file=sys.stderr)
    sys.exit(2)
SCALE_NONE, SCALE_INV_BY_N = 8, 2
library = ctypes.CDLL(sys.argv[1])
random = np.random.default_rng(1)
worst = {np.float32: 0.0, np.float64: 0.0}


def call(name, x, size, flag):
    """The array of `size` elements that a kernel makes of x."""
    out = np.full(size, np.nan, x.dtype)
    status = library[name](x.ctypes.data_as(ctypes.c_void_p), out.ctypes.data_as(ctypes.c_void_p),
                           ctypes.c_int32(flag))
    assert status == 0, (name, status)
    return out


def packed(X, N, layout):
    """Half a complex spectrum in the order of a layout."""
    pairs = np.stack([X.real, X.imag], axis=1).ravel()
    if layout == "CCS":
        return pairs
    middle = pairs[2:] if N % 2 else pairs[2:-1]
    if layout == "Pack" or N % 2:
        return np.concatenate([pairs[:1], middle])
    return np.concatenate([pairs[:1], middle[-1:], middle[:-1]])


def compare(name, ours, exact, real):
    error = np.linalg.norm(ours - exact) / np.linalg.norm(exact)
    assert error < 4 * np.finfo(real).eps, (name, error)
    worst[real] = max(worst[real], error)


for real, cplx, suffix in (np.float32, np.complex64, "32f"), (np.float64, np.complex128, "64f"):
    for N in range(2, 65):
        x = random.standard_normal(N).astype(real)
        z = (x + 1j * random.standard_normal(N)).astype(cplx)
        for name, y in (f"rvngDFTFwd_CToC_{N}_{suffix}c", np.fft.fft(z.astype(complex))), \
                       (f"rvngDFTInv_CToC_{N}_{suffix}c", np.fft.ifft(z.astype(complex))):
            compare(name, call(name, z, N, SCALE_INV_BY_N), y, real)
        X = np.fft.rfft(x.astype(float))
        for layout in "CCS", "Pack", "Perm":
            name = f"rvngDFTFwd_RTo{layout}_{N}_{suffix}"
            spectrum = packed(X, N, layout)
            compare(name, call(name, x, len(spectrum), SCALE_NONE), spectrum, real)
            name = f"rvngDFTInv_{layout}ToR_{N}_{suffix}"
            compare(name, call(name, spectrum.astype(real), N, SCALE_INV_BY_N), x, real)
        name = f"rvngHartley_{N}_{suffix}"
        full = np.fft.fft(x.astype(float))
        compare(name, call(name, x, N, SCALE_NONE), full.real - full.imag, real)
print(f"largest relative errors: {worst[np.float32]:.1e} in 32f, {worst[np.float64]:.1e} in 64f")
