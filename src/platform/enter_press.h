#pragma once

class QKeyEvent;
class QPushButton;

namespace calvora {

/// Whether a key is Enter, that of the numeric pad included.
bool isEnter(const QKeyEvent& key);

/// Lets Enter press a button that has the focus, and only then: in a dialog Enter would otherwise
/// press a button out of any field.
void pressOnEnter(QPushButton& button);

}  // namespace calvora
