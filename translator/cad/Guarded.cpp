// The log line of a failure.
#include "translator/cad/Guarded.h"

#include "platform/kernel/KVServices.h"
#include "platform/kernel/MxSystemServices.h"

void LogFailure(const TQString& operation, const TQString& reason) {
    electricalLog(operation + " : " + reason, ACTIVE_DOCUMENT());
}
