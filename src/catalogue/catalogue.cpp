#include "zel_protocol/catalogue.h"

#include "core/families.h"
#include "zel_platform/memory.h"
#include "zel_protocol/zel_protocol.h"

#ifdef ZEL_IN_PARTS
// What belongs to families that are left out isn't there.
namespace zel {
extern const Family kAlarmReportFamily [[gnu::weak]];
extern const Family kSystemConfigFamily [[gnu::weak]];
} // namespace zel
#define ZEL_RECORD(NAME) extern "C" [[gnu::weak]] int NAME##_init(NAME* param);
#define ZEL_ALIAS(NAME, ORIGINAL) ZEL_RECORD(NAME)
#include "catalogue/records.inc"
#endif

namespace zel {

namespace {

// --- Names of records ----------------------------------------------------------------------------

struct RecordName
{
    int (*init)(void* record);
    const char* name;
};

// A record is known by its init; one without an exported init starts at zero.
constexpr RecordName kRecordNames[] = {
#define ZEL_RECORD(NAME) {Erased<NAME##_init>::call, #NAME},
#define ZEL_ALIAS(NAME, ORIGINAL) ZEL_RECORD(NAME)
#define ZEL_STRUCT(NAME) {Erased<startAtZero<NAME>>::call, #NAME},
#include "catalogue/records.inc"
};

const char* nameOf(int (*init)(void* record))
{
    for (const RecordName& record : kRecordNames)
        if (record.init == init)
            return record.name;
    return nullptr;
}

// --- Messages ------------------------------------------------------------------------------------

// One message, in its family.
struct Place
{
    const Family* family = nullptr;
    const CodeRow* code = nullptr;
};

Place placeOf(int index)
{
    if (index < 0)
        return {};
    auto rest = static_cast<size_t>(index);
    for (const Family* const family : kFamilies) {
        if (rest < family->count)
            return {family, family->codes + rest};
        rest -= family->count;
    }
    return {};
}

// The function's own name: a log text may have something in front of it.
const char* operationOf(const char* logged)
{
    const char* const blank = strrchr(logged, ' ');
    return blank ? blank + 1 : logged;
}

void putText(char (&field)[32], const char* text)
{
    const size_t length = strnlen(text, sizeof field - 1);
    memcpy(field, text, length);
}

bool isAlarm(const Place& place)
{
    return place.family == &kAlarmReportFamily;
}

void fillCode(const Place& place, ZEL_CATALOGUE_ENTRY& entry)
{
    if (place.code->text)
        putText(entry.Msg_code, place.code->text);
    else
        printNumber(entry.Msg_code, place.code->code);
    entry.word = place.code->word;
    entry.alarm_code = isAlarm(place) ? place.code->code : -1;
}

void fillRow(const CodeRow& code, ZEL_CATALOGUE_ENTRY& entry)
{
    const MessageRow& row = *code.row;
    const bool isExtended = row.extension.size != 0;
    entry.operation = operationOf(row.leaf.name);
    entry.init = code.init && !isExtended ? code.init : row.record.init;
    entry.record = nameOf(entry.init);
    entry.record_size = row.record.size;
    for (const Part& part : row.parts)
        entry.kinds |= static_cast<uint32_t>(part.kinds) & 0xF;
    if (isExtended) {
        entry.extension_init = code.init ? code.init : row.extension.init;
        entry.extension = nameOf(entry.extension_init);
        entry.extension_size = row.extension.size;
    }
    entry.pointer_at = row.record.pointerAt;
    entry.behind = row.behind;
}

bool isNamed(const Place& place, std::string_view code, const char* word, int32_t alarmCode)
{
    const CodeRow& known = *place.code;
    if (isAlarm(place) && known.code != alarmCode)
        return false;
    if (word && (!known.word || strcmp(known.word, word) != 0))
        return false;
    if (!known.text)
        return known.code == numberOf(code);
    return !*known.text || code == known.text;
}

// --- Descriptions --------------------------------------------------------------------------------

// A message's block, that a list runs over, and who is told of what it comes by.
struct Walk
{
    const MessageRow& row;
    int kind;
    char* block;
    ZEL_DESCRIBE describe;
    void* context;
};

constexpr size_t kLongestPath = 256;
constexpr size_t kDeepest = 16;

// Goes over a message in one direction. It tells of everything that the other direction doesn't have, or
// looks whether one thing is among what this direction has.
struct Describer : Visitor
{
    Describer(const Walk& all, bool isWriting, const ZEL_DESCRIPTION* what = nullptr)
        : Visitor(isWriting, true, onField, onEnter, onLeave), walk(all), sought(what)
    {
        path[0] = '\0';
    }

    const Walk& walk;
    const ZEL_DESCRIPTION* const sought;
    bool isFound = false;
    char path[kLongestPath];
    size_t lengths[kDeepest] = {}; // of the path at each depth
    size_t depth = 0;

    void meet(ZEL_DESCRIPTION& met);

    static bool onField(Visitor& visitor, const FieldSeen& seen);
    static bool onEnter(Visitor& visitor, const ElementSeen& seen);
    static void onLeave(Visitor& visitor);
};

bool isWalked(const Walk& walk, const Part& part, bool isWriting)
{
    if (!part.list)
        return false;
    if (isWriting)
        return includes(part.kinds, walk.kind);
    if (!part.isRead)
        return false;
    // What is only read belongs to either kind, and so does what reads a part that is only written.
    bool isOnlyWritten = false;
    for (const Part& other : walk.row.parts)
        isOnlyWritten |= other.list && !other.isRead && includes(other.kinds, walk.kind);
    return isOnlyWritten || part.kinds == Kinds::kNone || includes(part.kinds, walk.kind);
}

void run(Describer& describer)
{
    const Walk& walk = describer.walk;
    const bool isWriting = describer.writes();
    if (walk.row.header && (!isWriting || includes(walk.row.headerKinds, walk.kind)))
        if (const Element header = element(describer, "../MESSAGE_HEADER"))
            walk.row.header(describer, walk.block);
    for (const Part& part : walk.row.parts)
        if (isWalked(walk, part, isWriting))
            runPart(part, describer, walk.block);
}

bool isSame(const char* a, const char* b)
{
    return a && b ? strcmp(a, b) == 0 : a == b;
}

void Describer::meet(ZEL_DESCRIPTION& met)
{
    met.path = path;
    if (sought) {
        isFound |= isSame(met.path, sought->path) && isSame(met.attribute, sought->attribute) &&
                   met.offset == sought->offset && met.in_extension == sought->in_extension;
        return;
    }
    Describer other(walk, !writes(), &met);
    // What is written beside the elements is a line of text, what is read an attribute of the body.
    const bool isBeside = depth == 0 && met.attribute && *met.attribute;
    if (!isBeside)
        run(other);
    // What both have was told of while writing.
    if (other.isFound && !writes())
        return;
    met.direction = other.isFound ? ZEL_WRITTEN_AND_READ : writes() ? ZEL_ONLY_WRITTEN : ZEL_ONLY_READ;
    walk.describe(walk.context, &met);
}

bool Describer::onField(Visitor& visitor, const FieldSeen& seen)
{
    auto& self = static_cast<Describer&>(visitor);
    const Walk& walk = self.walk;
    ZEL_DESCRIPTION met = {};
    met.attribute = seen.name.text;
    met.form = seen.form;
    met.size = seen.size;
    met.is_skipped = seen.isSkipped;
    met.offset = static_cast<size_t>(static_cast<char*>(seen.field) - walk.block);
    if (met.offset >= walk.row.record.size) {
        met.offset -= walk.row.record.size;
        met.in_extension = 1;
    }
    self.meet(met);
    return false;
}

bool Describer::onEnter(Visitor& visitor, const ElementSeen& seen)
{
    auto& self = static_cast<Describer&>(visitor);
    const size_t length = strlen(self.path);
    // Of rows the first stands for all.
    if (seen.index > 0 || self.depth == kDeepest || length + 1 + seen.name.length >= kLongestPath)
        return false;
    self.lengths[self.depth++] = length;
    char* at = self.path + length;
    if (length != 0)
        *at++ = '/';
    memcpy(at, seen.name.text, seen.name.length);
    at[seen.name.length] = '\0';
    ZEL_DESCRIPTION met = {};
    met.rows = seen.rows;
    met.row_size = seen.rowSize;
    self.meet(met);
    return true;
}

void Describer::onLeave(Visitor& visitor)
{
    auto& self = static_cast<Describer&>(visitor);
    self.path[self.lengths[--self.depth]] = '\0';
}

} // namespace

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int ZelProtocolCatalogueCount(void)
{
    size_t count = 0;
    for (const zel::Family* const family : zel::kFamilies)
        count += family->count;
    return static_cast<int>(count);
}

int ZelProtocolCatalogueEntry(int index, ZEL_CATALOGUE_ENTRY* entry)
{
    const zel::Place place = zel::placeOf(index);
    if (!place.family || !entry)
        return ZEL_ERR_BAD_PARAM;
    *entry = {};
    entry->Msg_type = place.family->types[place.code->type].text;
    entry->is_bare = place.family->isBare;
    zel::fillCode(place, *entry);
    if (place.code->row)
        zel::fillRow(*place.code, *entry);
    return 0;
}

int ZelProtocolCatalogueFind(const char* type, const char* code, const char* word, int alarm_code)
{
    if (!type || !code)
        return ZEL_ERR_BAD_PARAM;
    int index = 0;
    for (const zel::Family* const family : zel::kFamilies) {
        for (size_t i = 0; i < family->count; ++i, ++index) {
            const zel::Place place = {family, family->codes + i};
            // A code of the configuration is one message under either type.
            const bool isOfType =
                strcmp(family->types[place.code->type].text, type) == 0 ||
                (family == &zel::kSystemConfigFamily && zel::findFamily(type, code) == family);
            if (isOfType && zel::isNamed(place, code, word, alarm_code))
                return index;
        }
    }
    return ZEL_ERR_UNKNOWN_MSG;
}

int ZelProtocolCatalogueDescribe(int index, int kind, ZEL_DESCRIBE describe, void* context)
{
    const zel::Place place = zel::placeOf(index);
    if (!place.family || kind < 0 || kind > 3 || !describe)
        return ZEL_ERR_BAD_PARAM;
    if (!place.code->row)
        return 0;
    const zel::MessageRow& row = *place.code->row;
    void* const block = row.extension.size != 0 ? takeExtended(row.record, row.extension, row.extension.size)
                                                : takeRecord(row.record);
    if (!block)
        return ZEL_ERR_NO_MEMORY;
    const zel::Walk walk = {row, kind, static_cast<char*>(block), describe, context};
    for (const bool isWriting : {true, false}) {
        zel::Describer describer(walk, isWriting);
        zel::run(describer);
    }
    ZelProtocolFree(block);
    return 0;
}
