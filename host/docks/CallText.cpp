#include "host/docks/CallText.h"

#include "host/support/HostTexts.h"
#include "platform/DateTimes.h"
#include "platform/Failure.h"
#include "platform/NumberText.h"
#include "widgets/support/Convert.h"
#include "widgets/support/ShownText.h"

namespace ko {

namespace {

/// Makes the text of each alternative of `CallValue`.
class CallWriter {
public:
    CallWriter(const Texts& texts, const Locale& locale) : texts_(texts), locale_(locale) {}

    QString operator()(std::monostate) const { return {}; }
    QString operator()(bool value) const { return texts_(value ? hostText::yes : hostText::no); }
    QString operator()(std::int32_t value) const { return QString::number(value); }
    /// A number that was passed as a single is written as that single, 25.6 and not 25.6000003814697.
    QString operator()(double value) const
    {
        const auto single = static_cast<float>(value);
        const bool isSingle = static_cast<double>(single) == value;
        return toQt(numberText(isSingle ? widen(single) : value, locale_));
    }
    QString operator()(const std::string& text) const { return toLine(text); }
    QString operator()(DateTime time) const
    {
        try {
            return toQt(generalDate(time, locale_));
        } catch (const Failure&) {
            return (*this)(time.days);
        }
    }
    QString operator()(const Range& range) const
    {
        return QStringLiteral("%1 \u2013 %2").arg((*this)(range.minimum), (*this)(range.maximum));
    }
    template <class Element> QString operator()(const std::vector<Element>& list) const
    {
        QStringList all;
        for (const Element& element : list)
            all << (*this)(element);
        return all.join(QStringLiteral("; "));
    }

private:
    const Texts& texts_;
    const Locale& locale_;
};

} // namespace

QString callText(const CallValue& value, const Texts& texts, const Locale& locale)
{
    return std::visit(CallWriter(texts, locale), value);
}

} // namespace ko
