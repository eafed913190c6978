// The version record: one constant instance, built at link time. The number in the text and the
// field build disagree on purpose; callers compare both as they stand.

#include "rvngenmx.h"

namespace
{

constexpr RvnLibraryVersion libraryVersion = {
    .major = 6,
    .minor = 1,
    .majorBuild = 137,
    .build = 336,
    .targetCode = {'m', 'x', 0, 0},
    .name = "librvngenmx.so.6.1",
    .version = "6.1 build 137.56",
    .buildDate = "Mar 17 2010",
};

} // namespace

const RvnLibraryVersion* rvngenGetLibVersion()
{
    return &libraryVersion;
}
