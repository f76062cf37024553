// Guarded operations: a failure is written to the log where it happened and goes on to the caller.
#pragma once

#include <exception>
#include <utility>

#include "platform/drawing/OdError.h"
#include "translator/cad/TQString.h"

// One log line of the active document: the operation's name, " : " and the reason.
void LogFailure(const TQString& operation, const TQString& reason);

// Runs body and gives its result. An OdError is logged and thrown on as it is; others pass.
template <class Body>
decltype(auto) GuardedOdError(const char16_t* operation, Body&& body) {
    try {
        return std::forward<Body>(body)();
    } catch (const OdError& error) {
        LogFailure(operation, error.description());
        throw;
    }
}

// The same for OdError and for the exceptions of the standard library.
template <class Body>
decltype(auto) Guarded(const char16_t* operation, Body&& body) {
    try {
        return std::forward<Body>(body)();
    } catch (const OdError& error) {
        LogFailure(operation, error.description());
        throw;
    } catch (const std::exception& error) {
        LogFailure(operation, error.what());
        throw;
    }
}
