// A list of values as a formula of its index: gather(a, [&](int n1) { return x[b * n1 + n2]; }).
#pragma once

#include <type_traits>
#include <vector>

namespace rvn::generator
{

template <typename Formula> auto gather(int count, Formula formula)
{
    std::vector<std::decay_t<decltype(formula(0))>> values;
    values.reserve(count);
    for (int i = 0; i < count; ++i)
        values.push_back(formula(i));
    return values;
}

} // namespace rvn::generator
