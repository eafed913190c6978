// Written as a whole and closed before anyone is told that it is there.

#include "data_file.h"

#include "machine.h"

#include <fstream>
#include <stdexcept>

namespace
{

// "-" for those of the count that are missing at the end.
void writeCells(std::ostream& file, const std::vector<double>& values, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        if (i < values.size())
            file << " " << values[i];
        else
            file << " -";
    }
}

void writeHead(std::ostream& file, const std::string& title, const Layout& layout)
{
    const std::size_t peers = layout.contenders.size() - layout.firstPeer;
    file << "# " << title << "\n# " << processor() << "\n# " << layout.size << " "
         << layout.contenders.size() << " " << peers;
    for (const Extra& extra : layout.extras)
        file << " " << extra.names.size() << " " << extra.key;
    file << "\n";

    file << layout.size;
    for (const std::string& name : layout.contenders)
        file << " \"" << name << "\"";
    for (std::size_t i = layout.firstPeer; i < layout.contenders.size(); ++i)
        file << " \"" << layout.contenders[i] << "\"";
    for (const Extra& extra : layout.extras)
        for (const std::string& name : extra.names)
            file << " \"" << name << "\"";
    file << "\n";
}

void writeRow(std::ostream& file, const Layout& layout, const Row& row)
{
    std::vector<double> times;
    std::vector<double> ratios;
    for (const Timing& timing : row.timings)
        times.push_back(timing.nanoseconds);
    for (std::size_t i = layout.firstPeer; i < row.timings.size(); ++i)
        ratios.push_back(row.timings[i].ratio);

    file << row.sizes.front();
    writeCells(file, times, layout.contenders.size());
    writeCells(file, ratios, layout.contenders.size() - layout.firstPeer);
    for (std::size_t group = 0; group < layout.extras.size(); ++group)
        writeCells(file, row.extras[group], layout.extras[group].names.size());
    file << "\n";
}

} // namespace

void writeData(const std::string& path, const std::string& title, const Layout& layout,
               const std::vector<Row>& rows)
{
    std::ofstream file(path);
    writeHead(file, title, layout);
    for (const Row& row : rows)
        writeRow(file, layout, row);
    file.close();
    if (!file)
        throw std::runtime_error("cannot write " + path);
}
