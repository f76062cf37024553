// Whatever was thrown as a line of text.
#include "host/FailureLine.h"

#include "platform/drawing/OdError.h"
#include "platform/text/Conversion.h"

namespace host {

std::u16string FailureLine(const std::exception_ptr& failure) {
    try {
        std::rethrow_exception(failure);
    } catch (const OdError& error) {
        return error.description().text();
    } catch (const std::exception& error) {
        return text::WideFromNarrow(error.what());
    } catch (...) {
        return u"unknown exception";
    }
}

}  // namespace host
