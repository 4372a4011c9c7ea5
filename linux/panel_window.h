// The control panel's window: its menu, its buttons and its label, built from the panel's table.
#pragma once

#include <QtGui/QAction>
#include <QtWidgets/QMainWindow>

#include <functional>
#include <map>

#include "app/panel_table.h"
#include "text/text.h"

namespace pointalk::linux {

class PanelWindow final : public QMainWindow {
 public:
  // What the user does in the window. Each may be empty.
  struct Receivers {
    std::function<void(Handler)> command;
    std::function<void()> click;  // beside the buttons
    std::function<void()> close;
  };

  explicit PanelWindow(Receivers receivers);

  // The check mark of a menu entry; false for a name that is no entry.
  bool IsChecked(TextView name) const;
  void Check(TextView name, bool checked);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  struct Entry {
    QAction* action = nullptr;
    bool isChecked = false;
  };

  void AddMenus();
  void AddButtons();
  void Show(const Entry& entry);

  Receivers receivers_;
  std::map<Text, Entry, std::less<>> entries_;
};

}  // namespace pointalk::linux
