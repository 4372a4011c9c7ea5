#include "linux/dialogs.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

#include "linux/qt_text.h"

namespace pointalk::linux {
namespace {

// A box comes in front of everything, for it is asked in words at the same time. It is made modal before it
// is shown: afterwards the panel would go on taking commands under it.
void BringUp(QDialog& box) {
  box.setModal(true);
  box.setWindowFlag(Qt::WindowStaysOnTopHint);
  box.show();
  box.raise();
  box.activateWindow();
}

void AddButtons(QMessageBox& box, int style) {
  if (style == kBoxOk) {
    box.setDefaultButton(box.addButton(QMessageBox::Ok));
    return;
  }
  QPushButton* const yes = box.addButton(QMessageBox::Yes);
  QPushButton* const no = box.addButton(QMessageBox::No);
  yes->setText("&Yes");
  no->setText("&No");
  box.setDefaultButton(yes);
  if (style == kBoxYesNoCancel) box.addButton(QMessageBox::Cancel);
}

int AnswerOf(int button) {
  switch (button) {
    case QMessageBox::Ok: return kAnswerOk;
    case QMessageBox::Yes: return kAnswerYes;
    case QMessageBox::No: return kAnswerNo;
    case QMessageBox::Cancel: return kAnswerCancel;
    default: return 0;
  }
}

}  // namespace

int LinuxDialogs::AskByBox(TextView text, TextView title, int style) {
  QMessageBox box;
  box.setWindowTitle(ToQt(title));
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQt(text));
  AddButtons(box, style);
  BringUp(box);
  return AnswerOf(box.exec());
}

// The proposed text stands there selected, so that typing replaces it.
Text LinuxDialogs::AskByInput(TextView prompt, TextView title, TextView proposed) {
  QInputDialog box;
  box.setWindowTitle(ToQt(title));
  box.setLabelText(ToQt(prompt));
  box.setTextValue(ToQt(proposed));
  BringUp(box);
  return box.exec() == QDialog::Accepted ? FromQt(box.textValue()) : Text();
}

}  // namespace pointalk::linux
