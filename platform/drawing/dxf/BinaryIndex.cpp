// The pass over a binary file.
#include "platform/drawing/dxf/FileIndex.h"

namespace dxf {

void IndexBinary(const Buffer& file, FileIndex& index, const Await& await) {
    await(file.Size());
    IndexBuilder builder(file, index);
    GroupReader groups(Format::Binary, index.wideCodes, file.View(), index.bodyBegin);
    Group group;
    while (groups.Next(group)) {
        const Action action = ActionOfCode(group.code);
        if (action != Action::Zero) {
            if (action != Action::None) builder.Take(action, group.value, group.begin);
            continue;
        }
        builder.Start(group.begin, group.value);
        if (TypeOfName(group.value) == RecordType::Eof) break;
    }
    if (groups.Broken())
        throw Error("byte " + std::to_string(groups.Position()) +
                    ": the file ends inside a group; its end is missing, or a group is malformed");
    builder.Finish(groups.Position());
}

}  // namespace dxf
