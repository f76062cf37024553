// The widget that modules take as the owner of their dialogs.
#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/kernel/MxApplication.h"

namespace ui {

class MainWindow : public CMxMainWindowService {
  public:
    explicit MainWindow(QWidget* widget = nullptr) : widget(widget) {}

    void Set(QWidget* newWidget) { widget = newWidget; }  // not owned
    QWidget* GetMainWidget() override { return widget; }  // null once the widget is gone

  private:
    QPointer<QWidget> widget;
};

}  // namespace ui
