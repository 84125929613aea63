#pragma once

#include <QStringList>
#include <functional>

class QMimeData;
class QWidget;

namespace calvora {

/// The paths of the local files that are dragged; none where it is a text, or from elsewhere.
QStringList draggedFiles(const QMimeData& data);

/// Lets files be dropped anywhere on a window, unless it is disabled or a modal window is open.
/// `dropped` is called when the drop itself is over, so that it may open windows.
void takeFiles(QWidget& window, const std::function<void(const QStringList&)>& dropped);

}  // namespace calvora
