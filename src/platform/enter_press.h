#pragma once

class QPushButton;

namespace calvora {

/// Lets Enter press a button that has the focus, and only then: in a dialog Enter would otherwise
/// press a button out of any field.
void pressOnEnter(QPushButton& button);

}  // namespace calvora
