// plot.h - a picture drawn by gnuplot from a script that holds its data.
#ifndef EXAMPLES_PLOT_H
#define EXAMPLES_PLOT_H

#include "part_file.h"

#include <span>
#include <sstream>
#include <string>

class Plot
{
public:
    // In pixels. Text is taken as it is, not as markup.
    Plot(int width, int height);

    // Adds to the script: a line, values as binary data behind a line that plots '-', or a table by
    // the name $name.
    Plot& operator<<(const std::string& line);
    void add(std::span<const float> values);
    template <typename Rows> void table(const std::string& name, const Rows& rows)
    {
        script_ << "$" << name << " << END\n";
        for (const auto& [x, y] : rows)
            script_ << x << " " << y << "\n";
        script_ << "END\n";
    }

    // Fills a PNG file, which is left to be committed; throws Failure when that fails.
    void draw(PartFile& file) const;

private:
    std::ostringstream script_;
};

// A text, a number as gnuplot reads it.
std::string quoted(const std::string& text);
std::string plotNumber(double value);

// The last part of a path, cut where it is too long for a title.
std::string titleOf(const std::string& path);

#endif
