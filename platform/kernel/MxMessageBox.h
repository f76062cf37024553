// Message boxes: the calls, and the service that shows them or answers without a window.
#pragma once

#include "platform/text/CMxString.h"
#include "platform/text/OdString.h"

class QWidget;

// Buttons of a message box, combined by sum.
inline constexpr int kButtonOk = 1024;
inline constexpr int kButtonYes = 16384;
inline constexpr int kButtonNo = 65536;
inline constexpr int kButtonCancel = 4194304;

// Shows a box and waits for the answer.
class CMxMessageBoxService {
  public:
    enum class Kind { Information, Question };

    // Gives the button that was pressed. defaultButton 0: the service chooses.
    virtual int Show(Kind kind, QWidget* parent, const OdString& title, const CMxString& text,
                     int buttons, int defaultButton) = 0;
    virtual ~CMxMessageBoxService() = default;
};

// The boxes as modules call them. Without installed services the answer is defaultButton.
class CMxMessageBox {
  public:
    static int information(QWidget* parent, const OdString& title, const CMxString& text,
                           int buttons = kButtonOk, int defaultButton = 0);
    static int question(QWidget* parent, const OdString& title, const CMxString& text,
                        int buttons = kButtonYes + kButtonNo, int defaultButton = 0);
};
