#include "linux/panel_window.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>
#include <utility>

#include "app/texts.h"
#include "linux/qt_text.h"

namespace pointalk::linux {
namespace {

constexpr int kButtonsInARow = 3;

QKeySequence KeyOf(Shortcut shortcut) {
  switch (shortcut) {
    case Shortcut::kF1: return Qt::Key_F1;
    case Shortcut::kF11: return Qt::Key_F11;
    case Shortcut::kF12: return Qt::Key_F12;
    case Shortcut::kControlM: return Qt::CTRL | Qt::Key_M;
    case Shortcut::kNone: break;
  }
  return {};
}

}  // namespace

PanelWindow::PanelWindow(Receivers receivers) : receivers_(std::move(receivers)) {
  setWindowTitle(ToQt(kPanelCaption));
  AddMenus();
  AddButtons();
  adjustSize();
  move(0, 0);
}

void PanelWindow::AddMenus() {
  menuBar()->setNativeMenuBar(false);
  QMenu* dropDown = nullptr;
  for (const MenuEntry& row : PanelMenu()) {
    if (row.handler == nullptr) {
      dropDown = menuBar()->addMenu(ToQt(row.caption));
      continue;
    }
    Entry entry{dropDown->addAction(ToQt(row.caption)), row.checkedAtStart};
    entry.action->setShortcut(KeyOf(row.shortcut));
    Show(entry);
    const auto placed = entries_.emplace(row.name, entry).first;
    connect(entry.action, &QAction::triggered, this, [this, placed, handler = row.handler] {
      Show(placed->second);  // a choice turns the mark by itself; whether it is turned is the form's to say
      if (receivers_.command) receivers_.command(handler);
    });
  }
}

void PanelWindow::AddButtons() {
  auto* const inside = new QWidget(this);
  auto* const grid = new QGridLayout(inside);
  int place = 0;
  for (const PanelButton& row : PanelButtons()) {
    auto* const button = new QPushButton(ToQt(row.caption), inside);
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, this, [this, handler = row.handler] {
      if (receivers_.command) receivers_.command(handler);
    });
    grid->addWidget(button, place / kButtonsInARow, place % kButtonsInARow);
    ++place;
  }
  auto* const rights = new QLabel(ToQt(kRightsStatement), inside);
  rights->setTextFormat(Qt::PlainText);
  rights->setWordWrap(true);
  grid->addWidget(rights, place / kButtonsInARow + 1, 0, 1, kButtonsInARow);
  setCentralWidget(inside);
}

// An entry without a mark is an ordinary one, also for screen readers.
void PanelWindow::Show(const Entry& entry) {
  entry.action->setCheckable(entry.isChecked);
  entry.action->setChecked(entry.isChecked);
}

bool PanelWindow::IsChecked(TextView name) const {
  const auto found = entries_.find(name);
  return found != entries_.end() && found->second.isChecked;
}

void PanelWindow::Check(TextView name, bool checked) {
  const auto found = entries_.find(name);
  if (found == entries_.end()) return;
  found->second.isChecked = checked;
  Show(found->second);
}

void PanelWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (receivers_.close) receivers_.close();
}

void PanelWindow::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && receivers_.click) receivers_.click();
}

}  // namespace pointalk::linux
