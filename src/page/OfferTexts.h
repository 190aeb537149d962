#pragma once

#include "page/OfferAccount.h"
#include "platform/Locale.h"

#include <functional>
#include <string>
#include <vector>

namespace ko {

/// The account of what the drivers offer, in words.
class OfferTexts {
public:
    /// A text of the string table.
    using Texts = std::function<std::string(int)>;

    /// `asRates` tells of periods by the rates that they stand for.
    OfferTexts(Texts texts, Locale locale, bool asRates)
        : texts_(std::move(texts)), locale_(std::move(locale)), asRates_(asRates)
    {
    }

    /// What all drivers have in common, as a sentence.
    [[nodiscard]] std::string common(const OfferAccount& account) const;

    /// What stands over the columns of a row.
    [[nodiscard]] std::vector<std::string> columns() const;
    /// What the driver of this index offers, what that did to what all have in common, and what the driver made of the
    /// last value written.
    [[nodiscard]] std::vector<std::string> row(const OfferAccount& account, std::size_t driver) const;

private:
    [[nodiscard]] std::string number(double value) const;
    [[nodiscard]] std::string valuesIn(std::size_t count, Range ends) const;
    [[nodiscard]] std::string range(Range range) const;
    [[nodiscard]] std::string offered(const DriverOffer& offer) const;
    [[nodiscard]] std::string effect(const OfferAccount& account, const DriverOffer& offer) const;
    [[nodiscard]] std::string beginning(const OfferAccount& account, const DriverOffer& offer) const;
    [[nodiscard]] std::string removed(const OfferAccount& account, const DriverOffer& offer) const;
    [[nodiscard]] std::string asked(const OfferAccount& account, std::size_t driver) const;

    Texts texts_;
    Locale locale_;
    bool asRates_;
};

} // namespace ko
