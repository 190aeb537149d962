#include "support/Steps.h"

namespace ko {

void Steps::reportCurrent() const noexcept
{
    ended_ = !errors_.reportCurrent(sourceText_, procedure_);
}

} // namespace ko
