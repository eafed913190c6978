// Written as a whole and closed before anyone is told that it is there.

#include "data_file.h"

#include "machine.h"

#include <fstream>
#include <stdexcept>

namespace rvn::bench
{

namespace
{

void writeHead(std::ostream& file, const std::string& title, const Layout& layout)
{
    const std::size_t peers = layout.contenders.size() - layout.firstPeer;
    file << "# " << title << "\n# " << processor() << "\n# " << layout.size << " "
         << layout.contenders.size() << " " << peers << " " << layout.extra.names.size() << " "
         << layout.extra.key << "\n";

    file << layout.sizes.front();
    for (const std::string& name : layout.contenders)
        file << " \"" << name << "\"";
    for (std::size_t i = layout.firstPeer; i < layout.contenders.size(); ++i)
        file << " \"" << layout.contenders[i] << "\"";
    for (const std::string& name : layout.extra.names)
        file << " \"" << name << "\"";
    file << "\n";
}

void writeRow(std::ostream& file, const Layout& layout, const Row& row)
{
    file << row.sizes.front();
    for (std::size_t i = 0; i < layout.contenders.size(); ++i) {
        if (i < row.timings.size())
            file << " " << row.timings[i].nanoseconds;
        else
            file << " -";
    }
    for (std::size_t i = layout.firstPeer; i < layout.contenders.size(); ++i) {
        if (i < row.timings.size())
            file << " " << row.timings[i].ratio;
        else
            file << " -";
    }
    for (std::size_t i = 0; i < layout.extra.names.size(); ++i) {
        if (i < row.extras.size())
            file << " " << row.extras[i];
        else
            file << " -";
    }
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

} // namespace rvn::bench
