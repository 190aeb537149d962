#include "page/Differences.h"

#include "platform/NumberText.h"
#include "support/Phrases.h"

namespace ko {

namespace {

struct Count {
    std::int32_t differing = 0, all = 0;
};

Count countDifferences(const Page& page, const TimebaseNumber& number)
{
    Count count;
    const OfferAccount& account = page.*number.offers;
    const auto shown = shownNumber(page, number);
    for (std::size_t i = 0; shown && i < account.readings.size(); ++i) {
        count.all += account.readings[i].held && isUsedBy(page, number, i) ? 1 : 0;
        count.differing += differs(page, number, i, *shown) ? 1 : 0;
    }
    return count;
}

/// A period is named as a rate.
std::string differencesText(const Page& page, const Support& support, const Quantity& quantity, double shown)
{
    constexpr std::int32_t namedAtMost = 5;
    const OfferAccount& account = page.*quantity.number->offers;
    std::int32_t found = 0;
    std::string all;
    for (std::size_t i = 0; i < account.readings.size(); ++i) {
        if (!differs(page, *quantity.number, i, shown) || ++found > namedAtMost)
            continue;
        const double held = *account.readings[i].held;
        const std::string one =
            filled(support.text(textNumber::compare::named),
                   {driverName(page, i), numberText(quantity.isRate ? 1.0 / held : held, support.locale())});
        all = found == 1 ? one : filled(support.text(textNumber::compare::list), {all, one});
    }
    if (found > namedAtMost)
        all =
            filled(support.text(textNumber::offers::andMore), {all, countText(found - namedAtMost, support.locale())});
    return found == 0 ? all
                      : filled(support.text(textNumber::compare::differsIn), {(page.*quantity.label).caption(), all});
}

} // namespace

std::string driverName(const Page& page, std::size_t driver)
{
    const bool isNamed = driver < page.driverNames.size() && !page.driverNames[driver].empty();
    return isNamed ? page.driverNames[driver] : std::to_string(driver + 1);
}

std::string differencesText(const Page& page, const Support& support)
{
    std::string all;
    for (const Quantity& quantity : quantities) {
        const auto shown = shownNumber(page, *quantity.number);
        if (!shown || quantity.isRate != quantity.number->isPeriod || !(page.*quantity.number->frame).visible())
            continue;
        const std::string one = differencesText(page, support, quantity, *shown);
        if (!one.empty())
            all = all.empty() ? one : filled(support.text(textNumber::compare::sentences), {all, one});
    }
    return all;
}

/// A number that is written to every driver is shown as the last driver with a timebase holds it.
std::optional<double> shownNumber(const Page& page, const TimebaseNumber& number)
{
    const OfferAccount& account = page.*number.offers;
    if (account.shown)
        return account.shown;
    const std::vector<Reading>& readings = account.readings;
    if (!number.toAllDrivers) {
        const auto current = static_cast<std::size_t>(page.dynamicDriverIndex);
        return current < readings.size() ? readings[current].held : std::nullopt;
    }
    for (std::size_t i = readings.size(); i > 0; --i)
        if (account.hasTimebase(i - 1))
            return readings[i - 1].held;
    return std::nullopt;
}

bool isUsedBy(const Page& page, const TimebaseNumber& number, std::size_t driver)
{
    const std::vector<DriverFigures>& drivers = page.figures.drivers;
    return driver < drivers.size() && drivers[driver].isDynamic != number.toAllDrivers &&
           (page.*number.offers).hasTimebase(driver);
}

bool differs(const Page& page, const TimebaseNumber& number, std::size_t driver, double shown)
{
    const Reading& reading = (page.*number.offers).readings[driver];
    return reading.held && !isSameNumber(*reading.held, shown) && isUsedBy(page, number, driver);
}

bool differs(const Page& page, const TimebaseNumber& number, std::size_t driver)
{
    const auto shown = shownNumber(page, number);
    return shown && driver < (page.*number.offers).readings.size() && differs(page, number, driver, *shown);
}

void showDifferences(Page& page, const Support& support, const TimebaseNumber& number)
{
    const Count count = countDifferences(page, number);
    const bool isShown = count.differing > 0 && (page.*number.frame).visible();
    const std::string caption = isShown ? filled(counted(support, count.differing, textNumber::compare::differ),
                                                 {{}, countText(count.all, support.locale())})
                                        : std::string();
    forEachQuantityOf(number, [&](const Quantity& quantity) {
        (page.*quantity.mark).setCaption(caption);
        (page.*quantity.mark).setVisible(isShown);
    });
}

} // namespace ko
