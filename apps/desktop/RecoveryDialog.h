// The question what is to become of unsaved work.
#pragma once

#include <QDialog>
#include <functional>
#include <vector>

#include "apps/desktop/recovery/Recovery.h"

class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace desktop {

// Accepted: the chosen works are to be opened. What is neither opened nor discarded stays, and is
// asked about at the next start.
class RecoveryDialog : public QDialog {
  public:
    explicit RecoveryDialog(const std::vector<LeftWork>& works, QWidget* parent = nullptr);

    std::vector<const LeftWork*> Chosen() const;
    std::function<void(const LeftWork&)> onDiscard;

  private:
    void Add(const LeftWork& work);
    std::vector<QTreeWidgetItem*> Ticked() const;
    const LeftWork& WorkOf(const QTreeWidgetItem& item) const;
    void Discard();
    void UpdateButtons();

    const std::vector<LeftWork>& works;
    QTreeWidget* list;
    QPushButton* open;
    QPushButton* discard;
};

}  // namespace desktop
