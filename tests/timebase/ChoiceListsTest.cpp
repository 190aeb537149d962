#include "Offers.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace ko::test {
namespace {

TEST(ChoiceListsTest, MergesDriverByDriver)
{
    constexpr double inf = std::numeric_limits<double>::infinity();
    const struct {
        const char* name;
        std::vector<Offer> offers;
        Values values;
        Range range;
    } cases[]{
        {"no driver", {}, {}, {}},
        {"one list keeps order and duplicates", {{{3, 1, 3}, {}}}, {3, 1, 3}, {}},
        {"common values in the first order", {{{4, 2, 8}, {}}, {{8, 4, 4}, {}}}, {4, 8}, {}},
        {"ranges intersect", {{{}, {1, 10}}, {{}, {4, 20}}}, {}, {4, 10}},
        {"no range offered", {{{}, {0, 0}}, {{}, {-1, 0}}}, {}, {}},
        {"a range narrows the list", {{{1, 5, 9}, {}}, {{}, {5, 9}}}, {5, 9}, {}},
        {"a kept range narrows a later list", {{{}, {2, 6}}, {{1, 2, 6, 7}, {}}}, {2, 6}, {2, 6}},
        {"a list that became empty starts afresh", {{{1, 2}, {}}, {{3}, {}}, {{7, 8}, {}}}, {7, 8}, {}},
        {"nothing in common at the end", {{{1}, {}}, {{2}, {}}}, {}, {}},
        {"a reversed range lets nothing through", {{{1, 2}, {}}, {{}, {5, 1}}}, {}, {}},
        {"disjoint ranges end reversed", {{{}, {1, 2}}, {{}, {3, 4}}}, {}, {3, 2}},
        {"only values that are finite and above 0 are choices", {{{NAN, -1, 2, 0, inf}, {}}}, {2}, {}},
        {"a list of nothing else counts as none", {{{NAN}, {1, 3}}}, {}, {1, 3}},
        {"a range that is not finite counts as none", {{{4}, {}}, {{}, {NAN, 9}}, {{}, {1, inf}}}, {4}, {}},
        {"one bound alone is a range", {{{}, {0, 5}}}, {}, {0, 5}},
        {"so is a lower one", {{{}, {0.5, 0}}}, {}, {0.5, 0}},
    };
    for (const auto& it : cases) {
        const MergedChoices result = merged(it.offers);
        EXPECT_EQ(result.values(), it.values) << it.name;
        EXPECT_EQ(result.range(), it.range) << it.name;
    }
}

RC_GTEST_PROP(ChoiceListsTest, CommonValuesAreThoseOfAPlainSearch, ())
{
    const auto inAnyOrder = [] {
        const auto value = rc::gen::map(rc::gen::inRange(-4, 5), [](int i) { return i * 0.25; });
        auto list = *rc::gen::container<Values>(value);
        const int order = *rc::gen::inRange(0, 3);
        if (order == 1)
            std::sort(list.begin(), list.end());
        else if (order == 2)
            std::sort(list.rbegin(), list.rend());
        return list;
    };
    const Values a = inAnyOrder();
    const Values b = inAnyOrder();
    Values expected;
    Values others;
    for (const double x : a)
        (std::find(b.begin(), b.end(), x) != b.end() ? expected : others).push_back(x);
    Values common = a;
    Values removed;
    commonValues(common, b, removed);
    RC_ASSERT(common == expected);
    RC_ASSERT(removed == others);
}

} // namespace
} // namespace ko::test
