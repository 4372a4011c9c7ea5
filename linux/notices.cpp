#include "linux/notices.h"

#include <QtWidgets/QMessageBox>

#include <iostream>

#include "linux/qt_text.h"

namespace pointalk::linux {

void Notices::Show(TextView sentence) {
  const QString text = ToQt(sentence);
  std::cerr << text.toStdString() << '\n';
  auto* const box = new QMessageBox(QMessageBox::Information, "Pointalk", text, QMessageBox::Ok);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setTextFormat(Qt::PlainText);
  box->setModal(false);
  box->show();
}

}  // namespace pointalk::linux
