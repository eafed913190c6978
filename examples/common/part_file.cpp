// part_file.cpp - see part_file.h.
#include "part_file.h"

#include "program.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>
#include <utility>

namespace
{

namespace fs = std::filesystem;

[[noreturn]] void refuse(const std::string& path, const std::string& reason)
{
    throw Failure("cannot write '" + path + "': " + reason);
}

// The file a name stands for, its links followed; only a plain file may be replaced.
fs::path destination(const std::string& path)
{
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status))
        return path;
    if (!fs::is_regular_file(status))
        refuse(path, "is not a plain file");
    const fs::path target = fs::canonical(path, error);
    return error ? fs::path(path) : target;
}

} // namespace

PartFile::PartFile(const std::string& path)
    : path_(path), target_(destination(path)),
      part_(target_.string() + "." + std::to_string(getpid()) + ".part")
{
    stream_ = std::fopen(part_.c_str(), "w+bx");
    if (!stream_)
        refuse(path_, std::strerror(errno));
    errno = 0;
}

PartFile::~PartFile()
{
    if (stream_)
        std::fclose(stream_);
    if (!part_.empty())
        std::remove(part_.c_str());
}

void PartFile::commit()
{
    std::FILE* stream = std::exchange(stream_, nullptr);
    if (std::fclose(stream) != 0 || std::rename(part_.c_str(), target_.c_str()) != 0)
        refuse(path_, std::strerror(errno));
    part_.clear();
}

void PartFile::fail(const std::string& reason) const
{
    refuse(path_, errno != 0 ? std::strerror(errno) : reason);
}
