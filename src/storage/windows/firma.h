#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "base/questions.h"
#include "model/settings.h"
#include "platform/control_array.h"
#include "platform/text_box.h"
#include "storage/settings.h"

namespace calvora {

/// Edits the company line that heads every printout. Not modal, deletes itself on close.
class firma : public QDialog {
  Q_OBJECT

 public:
  firma(Settings& settings, const QString& programFolder, Questions& questions, QWidget* parent);

  ControlArray<TextBox> Text1;  ///< 0 to 3 the lines, 4 the preview
  ControlArray<QLabel> Label1;
  ControlArray<QLabel> Label2;
  ControlArray<QLabel> Label3;
  ControlArray<QPushButton> Command1;

 private:
  void buildWindow();
  void connectLine(int index);
  void Form_Load();
  void Text1_Change();
  void Command1_Click(int index);
  void save();
  [[nodiscard]] CompanyLines lines() const;
  void showAvailable(qsizetype length);

  Settings& settings_;
  const QString& programFolder_;
  Questions& questions_;
  QLabel* failure_;
  bool keyPressed_ = false;  ///< only then is there something to save
};

}  // namespace calvora
