#pragma once

namespace ko::test {

class Workplace;

/// Presses a key of the instruments' dock on a random row.
void editInstruments(Workplace& place);
/// Triggers an action of the context menu, which has more than the keys, on a random row.
void actOnInstrument(Workplace& place);
/// An instrument fails from now on, or works again.
void breakInstrument(Workplace& place);

} // namespace ko::test
