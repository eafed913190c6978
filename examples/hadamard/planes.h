// planes.h - a picture as planes of numbers, each cut into square blocks.
//
// Grey is one plane. Colour is three, luma and two of chroma, since what happens in one of red,
// green and blue mostly happens in the others: luma holds nearly all of it, and the chroma planes
// are left with coefficients that may be dropped. The change of axes is orthogonal, as the
// transform is, so that an error in a coefficient is an error of the same size in the picture, and
// keeping the largest coefficients of all planes together is the best choice there is.
#ifndef HADAMARD_PLANES_H
#define HADAMARD_PLANES_H

#include "picture.h"

// Where a pixel's value is: planes one after the other, in each the blocks in rows from the top, in
// each block its values in rows from the top.
struct Layout {
    int order = 0; // blocks of 2^order x 2^order
    int across = 0, down = 0, planes = 0;

    std::size_t planeSize() const;
    std::size_t index(std::size_t plane, int x, int y) const;
};

struct Planes {
    Layout layout;
    std::vector<float> values;
};

// The picture's values less half their range; alpha is left out. Blocks that reach beyond the right
// or lower edge repeat the last column or row. Throws Failure if all blocks together are too large.
Planes splitPicture(const Picture& picture, int order);

// The way back: the original with its colours replaced.
Picture joinPlanes(const Planes& planes, const Picture& original);

#endif
