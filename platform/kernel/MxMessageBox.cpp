// Message boxes go to the service that the running program has installed.
#include "platform/kernel/MxMessageBox.h"

#include "platform/kernel/MxSystemServices.h"

namespace {

int Show(CMxMessageBoxService::Kind kind, QWidget* parent, const OdString& title,
         const CMxString& text, int buttons, int defaultButton) {
    CMxSystemServices* services = GetMxSystemServices();
    CMxMessageBoxService* boxes = services ? services->GetMessageBoxService() : nullptr;
    return boxes ? boxes->Show(kind, parent, title, text, buttons, defaultButton) : defaultButton;
}

}  // namespace

int CMxMessageBox::information(QWidget* parent, const OdString& title, const CMxString& text,
                               int buttons, int defaultButton) {
    return Show(CMxMessageBoxService::Kind::Information, parent, title, text, buttons,
                defaultButton);
}

int CMxMessageBox::question(QWidget* parent, const OdString& title, const CMxString& text,
                            int buttons, int defaultButton) {
    return Show(CMxMessageBoxService::Kind::Question, parent, title, text, buttons, defaultButton);
}
