#include "platform/file_drop.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>
#include <utility>

namespace calvora {

namespace {

class FileDrop : public QObject {
 public:
  FileDrop(QWidget& window, std::function<void(const QStringList&)> dropped)
      : QObject(&window), window_(window), dropped_(std::move(dropped)) {}

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    const bool drops = event->type() == QEvent::Drop;
    const bool drags = event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove;
    if (!drops && !drags) return false;
    auto& drag = *static_cast<QDropEvent*>(event);
    const QStringList files = draggedFiles(*drag.mimeData());
    if (files.isEmpty() || !isFree() || !drag.possibleActions().testFlag(Qt::CopyAction)) {
      drag.ignore();
      return true;
    }
    drag.setDropAction(Qt::CopyAction);  // whoever moves a file here must not lose it there
    drag.accept();
    if (drops) {
      QMetaObject::invokeMethod(
          this, [=, this] { take(files); }, Qt::QueuedConnection);
    }
    return true;
  }

 private:
  [[nodiscard]] bool isFree() const {
    return window_.isEnabled() && QApplication::activeModalWidget() == nullptr;
  }

  void take(const QStringList& files) {
    if (!isFree()) return;
    window_.activateWindow();  // the drag came from another one
    dropped_(files);
  }

  QWidget& window_;
  std::function<void(const QStringList&)> dropped_;
};

}  // namespace

QStringList draggedFiles(const QMimeData& data) {
  QStringList files;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) files += url.toLocalFile();
  }
  return files;
}

void takeFiles(QWidget& window, const std::function<void(const QStringList&)>& dropped) {
  window.setAcceptDrops(true);
  window.installEventFilter(new FileDrop(window, dropped));
}

}  // namespace calvora
