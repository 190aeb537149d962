#pragma once

class QWidget;

namespace ko::test {

class RandomUser;

/// Makes one random input to a window: keys, mouse, wheel, context menus, dropped texts.
void makeInput(RandomUser& user, QWidget& front);
/// Makes one input to an open menu or list.
void makePopupInput(RandomUser& user, QWidget& popup);
/// Replaces the text at the keyboard's focus by one that is likely to be accepted.
void enterText(RandomUser& user, QWidget& front);

} // namespace ko::test
