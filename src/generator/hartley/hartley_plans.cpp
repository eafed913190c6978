// The route of each length is settled: it is not always the cheaper one and follows no rule.

#include "generator/hartley/hartley_plans.h"

#include "generator/transforms/method.h"

#include <algorithm>

namespace rvn::generator
{

using enum Route;

namespace
{

// clang-format off
constexpr HartleyPlan plans[] = {
//   N  route  additions, multiplications
    { 2, Either,    2,    2},
    { 3, Either,    6,    5},
    { 4, Either,    8,    4},
    { 5, Either,   16,   13},
    { 6, Output,   18,   10},
    { 7, Input,    30,   25},
    { 8, Output,   26,   10},
    { 9, Output,   40,   29},
    {10, Input,    42,   26},
    {11, Output,   70,   61},
    {12, Input,    48,   20},
    {13, Input,    92,   57},
    {14, Input,    74,   50},
    {15, Input,    78,   49},
    {16, Output,   72,   28},
    {17, Either,  132,   71},
    {18, Input,    98,   54},
    {19, Output,  182,  127},
    {20, Input,   104,   52},
    {21, Output,  132,   89},
    {22, Output,  162,  122},
    {23, Input,   306,  265},
    {24, Output,  126,   46},
    {25, Input,   176,  137},
    {26, Output,  206,  108},
    {27, Input,   190,  127},
    {28, Input,   176,  100},
    {29, Output,  334,  239},
    {30, Input,   186,   98},
    {31, Input,   346,  225},
    {32, Input,   186,   74},
    {33, Input,   300,  205},
    {34, Input,   298,  142},
    {35, Input,   262,  181},
    {36, Input,   232,  108},
    {37, Input,   438,  273},
    {38, Output,  402,  254},
    {39, Output,  348,  188},
    {40, Input,   258,  114},
    {41, Output,  484,  283},
    {42, Input,   306,  178},
    {43, Input,   574,  395},
    {44, Input,   400,  244},
    {45, Input,   344,  207},
    {46, Input,   658,  530},
    {47, Output, 1306, 1105},
    {48, Input,   316,  120},
    {49, Output,  456,  373},
    {50, Output,  402,  274},
    {51, Input,   498,  247},
    {52, Output,  464,  216},
    {53, Input,   892,  503},
    {54, Input,   434,  254},
    {55, Input,   566,  393},
    {56, Input,   422,  214},
    {57, Output,  660,  419},
    {58, Output,  726,  478},
    {59, Output, 1398, 1013},
    {60, Input,   432,  196},
    {61, Output,  822,  476},
    {62, Input,   754,  450},
    {63, Output,  550,  365},
    {64, Input,   462,  198},
};
// clang-format on

static_assert(std::ranges::all_of(plans, [](const HartleyPlan& row) {
    return row.length == lowestLength + (&row - plans);
}));
static_assert(std::size(plans) == highestLength - lowestLength + 1);

} // namespace

std::span<const HartleyPlan> hartleyPlans()
{
    return plans;
}

} // namespace rvn::generator
