#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "base/questions.h"
#include "model/settings.h"
#include "platform/control_array.h"

namespace calvora {

/// Chooses the folder in which analyses are kept. Not modal, deletes itself on close.
class datenpfad : public QDialog {
  Q_OBJECT

 public:
  datenpfad(Settings& settings, const QString& programFolder, Questions& questions,
            QWidget* parent);

  /// Shows a message of the program's catalogue, one of `meldung`, and returns the pressed button.
  /// `extra` is what it tells. Any other code shows an empty message.
  static Button message(Questions& questions, int code, const QString& extra = {});

  QComboBox* Drive1;
  QListWidget* Dir1;
  QLabel* Label1;
  QLabel* Label2;
  ControlArray<QLabel> Label3;
  ControlArray<QPushButton> Command1;

 protected:
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void buildWindow();
  void listDrives();
  void openFolder(const QString& folder);
  void choose(const QString& folder);
  bool canBeKept(const QString& folder);
  void Drive1_Change(int index);
  void Dir1_Click(QListWidgetItem* entry);
  void Command1_Click(int index);

  Settings& settings_;
  const QString& programFolder_;
  Questions& questions_;
  QLabel* failure_;
  bool shown_ = false;
};

}  // namespace calvora
