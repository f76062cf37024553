// Class descriptors of the kernel's run-time classes, one for the host and its modules.
#include "platform/kernel/MxCommandContext.h"
#include "platform/kernel/MxDocumentManager.h"

ODRX_NO_CONS_DEFINE_MEMBERS(CMxDocumentManagerReactor, OdRxObject)
ODRX_NO_CONS_DEFINE_MEMBERS(CMxCommandContext, OdEdCommandContext)
