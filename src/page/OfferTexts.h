#pragma once

#include "page/OfferAccount.h"
#include "platform/Locale.h"

#include <functional>
#include <string>
#include <vector>

namespace ko {

/// Describes an `OfferAccount` in words.
class OfferTexts {
public:
    /// Returns a text of the string table by number.
    using Texts = std::function<std::string(int)>;

    /// `asRates` shows periods as rates.
    OfferTexts(Texts texts, Locale locale, bool asRates)
        : texts_(std::move(texts)), locale_(std::move(locale)), asRates_(asRates)
    {
    }

    /// A sentence on the values that all drivers have in common.
    [[nodiscard]] std::string common(const OfferAccount& account) const;

    /// The column headers.
    [[nodiscard]] std::vector<std::string> columns() const;
    /// The cells of one driver: its offer, the effect on the common values, and the value it kept after the last write.
    [[nodiscard]] std::vector<std::string> row(const OfferAccount& account, std::size_t driver) const;

private:
    [[nodiscard]] std::string number(double value) const;
    [[nodiscard]] std::string valuesIn(std::size_t count, Range ends) const;
    [[nodiscard]] std::string range(Range range) const;
    [[nodiscard]] std::string offered(const DriverOffer& offer) const;
    [[nodiscard]] std::string effect(const OfferAccount& account, const DriverOffer& offer) const;
    [[nodiscard]] std::string beginning(const OfferAccount& account, const DriverOffer& offer) const;
    [[nodiscard]] std::string removed(const OfferAccount& account, const DriverOffer& offer) const;
    [[nodiscard]] std::string lastWrite(const OfferAccount& account, std::size_t driver) const;

    Texts texts_;
    Locale locale_;
    bool asRates_;
};

} // namespace ko
