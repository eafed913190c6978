/* batches.c - many transforms: the two-dimensional DFT of an image. Its rows are contiguous, and a
 * loop does them. Its columns have a stride: they pass through a small panel, as many at a time as
 * share a cache line.
 */
#include <rvngenmx.h>

#include <math.h>
#include <stdio.h>

enum { height = 48, width = 64, columns = 4 }; /* 4 complex doubles fill a line of 64 bytes */

static Rvn64fc image[height][width], spectrum[height][width];

static RvnStatus transformRows(void)
{
    RvnStatus status = RvnStatusNoError;
    for (int y = 0; y < height; ++y)
        status |= rvngDFTFwd_CToC_64_64fc(image[y], spectrum[y], RvnScaleNone);
    return status;
}

static RvnStatus transformColumns(void)
{
    RvnStatus status = RvnStatusNoError;
    Rvn64fc panel[columns][height];
    for (int first = 0; first < width; first += columns) {
        for (int y = 0; y < height; ++y)
            for (int c = 0; c < columns; ++c)
                panel[c][y] = spectrum[y][first + c];
        for (int c = 0; c < columns; ++c)
            status |= rvngDFTFwd_CToC_48_64fc(panel[c], panel[c], RvnScaleNone);
        for (int y = 0; y < height; ++y)
            for (int c = 0; c < columns; ++c)
                spectrum[y][first + c] = panel[c][y];
    }
    return status;
}

int main(void)
{
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image[y][x].re = (7 * y * y + 5 * x * y + 3 * x) % 23 / 11.0 - 1;
    if (transformRows() != RvnStatusNoError || transformColumns() != RvnStatusNoError)
        return 1;

    double largest = 0; /* error of some bins, against the sum */
    for (int v = 0, u = 1; v < height; v += 9, u += 10) {
        double re = 0, im = 0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const double turns = v * y % height / 48.0 + u * x % width / 64.0;
                re += image[y][x].re * cos(2 * acos(-1.0) * turns);
                im -= image[y][x].re * sin(2 * acos(-1.0) * turns);
            }
        largest = fmax(largest, hypot(spectrum[v][u].re - re, spectrum[v][u].im - im));
    }
    printf("%d rows and %d columns agree with the sum within %.1e\n", height, width, largest);
    return largest < 1e-10 ? 0 : 1;
}
