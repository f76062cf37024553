// Failures of what the user asked for become a box and a line of the log.
#include "apps/desktop/Guard.h"

#include "host/FailureLine.h"
#include "platform/kernel/KVServices.h"
#include "platform/kernel/MxSystemServices.h"

namespace desktop {

bool Guarded(const QString& what, const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (...) {
        TellFailure(what, QString::fromStdU16String(host::FailureLine(std::current_exception())));
        return false;
    }
}

void TellFailure(const QString& what, const QString& reason) {
    electricalLog(CMxString(what + " : " + reason), ACTIVE_DOCUMENT());
    CMxSystemServices* services = GetMxSystemServices();
    if (!services) return;
    CMxMessageBox::information(services->GetMainWindowService()->GetMainWidget(),
                               services->GetApplicationInfo()->GetApplicationName(),
                               CMxString(what + "\n\n" + reason));
}

}  // namespace desktop
