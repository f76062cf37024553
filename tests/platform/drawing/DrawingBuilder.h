// Drawings for the tests, written as lines of "code value".
#pragma once

#include <string>
#include <string_view>

#include "platform/drawing/DbDatabase.h"

namespace drawing_test {

// One group a line: the code, one blank, the value as it is to stand in the file.
std::string Ascii(std::string_view lines, std::string_view lineEnd = "\n");
std::string Binary(std::string_view lines, bool wideCodes = true);

// The parts of a drawing around which a test puts its own.
struct Parts {
    std::string version = "AC1024";
    std::string layers = "";    // behind the layer 0, handle 10
    std::string blocks = "";    // BLOCK ... ENDBLK
    std::string records = "";   // BLOCK_RECORDs behind *Model_Space (1F) and *Paper_Space (1B)
    std::string entities = "";  // owned by 1F
    std::string objects = "0 DICTIONARY\n5 C\n330 0\n100 AcDbDictionary\n281 1\n";
    bool withObjects = true;
};
std::string Lines(const Parts& parts);  // the version decides whether there are handles at all

OdDbDatabasePtr Open(const Parts& parts);
OdDbDatabasePtr OpenBytes(std::string bytes);
OdDbDatabasePtr Reopened(OdDbDatabase& database);  // saved to bytes and read again

template <class T>
OdSmartPtr<T> At(OdDbDatabase& database, const char16_t* handle,
                 OdDb::OpenMode mode = OdDb::kForRead) {
    return database.getOdDbObjectId(OdDbHandle(handle)).openObject(mode);
}

// The code of the OdError that the action raises, eOk when it raises none.
template <class Action>
OdResult Raised(const Action& action) {
    try {
        action();
    } catch (const OdError& error) {
        return error.code();
    }
    return eOk;
}

// What a shell command prints, and its status when that is not 0.
std::string OutputOf(const std::string& command);

// The lines of the file that differ in two versions of it: "-old" and "+new", from a common start
// and end; empty when there is no difference.
std::string Difference(const std::string& before, const std::string& after);

}  // namespace drawing_test
