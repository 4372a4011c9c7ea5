// A program to point at: things of every kind at known places of a window without a frame, at the screen's
// top left.
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QTableWidget>
#include <QtWidgets/QTextEdit>
#include <QtWidgets/QTreeWidget>

namespace {

constexpr int kMenuHeight = 30;
constexpr int kRowHeight = 40;

// Puts a thing into a column of rows; it is as high as the rows that it spans, less a gap.
class Columns {
 public:
  explicit Columns(QWidget* inside) : inside_(inside) {}

  void Put(QWidget* thing, int column, int row, int rows = 1) {
    thing->setParent(inside_);
    thing->setGeometry(10 + column * 240, row * kRowHeight + 5, 220, rows * kRowHeight - 10);
  }

 private:
  QWidget* inside_;
};

void AddButtons(Columns& columns) {
  columns.Put(new QPushButton("Push me"), 0, 0);
  columns.Put(new QCheckBox("Check me"), 0, 1);
  columns.Put(new QRadioButton("Radio me"), 0, 2);
  auto* const toggle = new QPushButton("Toggle me");
  toggle->setCheckable(true);
  columns.Put(toggle, 0, 3);
  auto* const nameless = new QPushButton;
  nameless->setAccessibleDescription("Does what nobody has named");
  columns.Put(nameless, 0, 4);
}

void AddFields(Columns& columns) {
  columns.Put(new QLabel("A label"), 0, 5);
  columns.Put(new QLineEdit("line text"), 0, 6);
  auto* const password = new QLineEdit("secret");
  password->setEchoMode(QLineEdit::Password);
  password->setAccessibleName("Pass phrase");
  columns.Put(password, 0, 7);
  auto* const colours = new QComboBox;
  colours->addItems({"Red", "Green", "Blue"});
  columns.Put(colours, 0, 8);
  auto* const number = new QSpinBox;
  number->setValue(7);
  columns.Put(number, 0, 9);
  auto* const slider = new QSlider(Qt::Horizontal);
  slider->setValue(30);
  columns.Put(slider, 0, 10);
  auto* const progress = new QProgressBar;
  progress->setValue(40);
  columns.Put(progress, 0, 11);
  columns.Put(new QScrollBar(Qt::Horizontal), 0, 12);
}

void AddTexts(Columns& columns) {
  auto* const text = new QTextEdit;
  text->setPlainText("alpha beta gamma\ndelta epsilon\nzeta");
  columns.Put(text, 1, 0, 3);
  columns.Put(new QPlainTextEdit("first line of words\nsecond line here"), 1, 3, 3);
  auto* const list = new QListWidget;
  list->addItems({"Item one", "Item two", "Item three"});
  columns.Put(list, 1, 6, 3);
}

void AddTables(Columns& columns) {
  auto* const tree = new QTreeWidget;
  tree->setHeaderHidden(true);
  tree->addTopLevelItem(new QTreeWidgetItem({"Node A"}));
  columns.Put(tree, 2, 0, 3);
  auto* const table = new QTableWidget(1, 1);
  table->setItem(0, 0, new QTableWidgetItem("Cell one"));
  table->horizontalHeader()->hide();
  table->verticalHeader()->hide();
  columns.Put(table, 2, 3, 3);
  auto* const tabs = new QTabWidget;
  tabs->addTab(new QWidget, "Tab one");
  columns.Put(tabs, 2, 6, 3);
}

}  // namespace

int main(int count, char** arguments) {
  QApplication application(count, arguments);
  QMainWindow window(nullptr, Qt::FramelessWindowHint);
  window.setWindowTitle("Qt Target");
  window.menuBar()->setFixedHeight(kMenuHeight);
  QMenu* const file = window.menuBar()->addMenu("&File");
  file->addAction("&Open");
  file->addAction("Save &As");
  auto* const inside = new QWidget;
  Columns columns(inside);
  AddButtons(columns);
  AddFields(columns);
  AddTexts(columns);
  AddTables(columns);
  inside->setFixedSize(730, 13 * kRowHeight);
  window.setCentralWidget(inside);
  window.move(0, 0);
  window.show();
  return QApplication::exec();
}
