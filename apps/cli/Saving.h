// Writing of changed drawings.
#pragma once

#include "apps/cli/Certificate.h"
#include "apps/cli/Output.h"
#include "apps/cli/Progress.h"
#include "apps/cli/Session.h"

namespace cli {

// Saves the drawing in one step; verify is called with the complete new file before the old one is
// replaced, or before the first byte goes to standard output, and ends the save by throwing.
void SaveDrawing(Session& session, const SaveOptions& options, const dxf::Store::Verify& verify);

// Reports a certificate that holds.
using Tell = std::function<void(const Certificate&)>;

// Saves the drawing if the new file differs from the old one by nothing but what is expected;
// throws cli::Error, the output left as it was, if it does not. The report comes before the new
// file takes its place: what tell throws leaves the output as it was, too.
void SaveCertified(Session& session, const SaveOptions& options, Expectation expectation,
                   Progress& progress, const Tell& tell);

// Throws cli::Error for a drawing that can be read but not safely edited.
void RequireEditable(Session& session);

// A finding with its place, for a message.
std::string Worded(const dxf::Finding& finding, dxf::Format format);

}  // namespace cli
