// A button that tries a dictionary, and what came of it.
#pragma once

#include <QWidget>
#include <functional>

class QPushButton;

namespace desktop {

class WrappedLabel;

// Tries on a thread of its own, since a server may take its time to be out of reach. Creates and
// changes nothing.
class DatabaseCheck : public QWidget {
  public:
    explicit DatabaseCheck(std::function<QString()> url, QWidget* parent = nullptr);

  private:
    void Start();

    std::function<QString()> url;
    QPushButton* button;
    WrappedLabel* result;
};

// Opens the dictionary and tells what it holds, or why it cannot be used, in one line.
QString TryDictionary(const QString& url);

}  // namespace desktop
