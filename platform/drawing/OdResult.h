// OdResult: the kinds of failure of the drawing database.
#pragma once

enum OdResult {
    eOk,
    eGeneralError,  // told in text only
    eNotThatKindOfClass,
    eNotOpenForWrite,
    eWasErased,
    eNullObjectId,
    eNoDatabase,  // the object or the id belongs to no database (any more)
    eInvalidInput,
    eInvalidIndex,
    eInvalidResBuf,  // a chain that cannot stand in the place it is meant for
    eInvalidKey,
    eKeyNotFound,
    eDuplicateKey,
    eCannotScaleNonUniformly,  // the entity would have to become one of another type
    eStringTooLong,            // the drawing's format has no room for a text; nothing was changed
    eNotApplicable,            // the object or the drawing's version has no such thing
    eNoDictionaries,           // drawings of that version (R12 and older) have no dictionaries
    eReadOnlyDrawing,          // the file can be read but not safely edited
    eFileReadError,
    eFileWriteError,
    eFileChanged,  // not written: the file on disk is no longer the one that was read or saved
};

// "eOk", "eStringTooLong", ...
const char16_t* odResultName(OdResult result);
