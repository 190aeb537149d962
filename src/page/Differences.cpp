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

} // namespace

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
        if (account.drivers[i - 1].kind != DriverOffer::Kind::NoTimebase)
            return readings[i - 1].held;
    return std::nullopt;
}

bool isUsedBy(const Page& page, const TimebaseNumber& number, std::size_t driver)
{
    const std::vector<DriverFigures>& drivers = page.figures.drivers;
    const OfferAccount& account = page.*number.offers;
    return driver < drivers.size() && driver < account.drivers.size() &&
           drivers[driver].isDynamic != number.toAllDrivers &&
           account.drivers[driver].kind != DriverOffer::Kind::NoTimebase;
}

bool differs(const Page& page, const TimebaseNumber& number, std::size_t driver, double shown)
{
    const Reading& reading = (page.*number.offers).readings[driver];
    return reading.held && !isSameNumber(*reading.held, shown) && isUsedBy(page, number, driver);
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
