#include "core/message.h"

#include <climits>
#include <cstring>

#include "zel_platform/log.h"
#include "zel_platform/memory.h"

namespace zel {

Message::Message(const char* terminated)
    : text(terminated, terminated ? strlen(terminated) : 0), received(text.size()), sourceLength(-1)
{}

bool parse(Message& message)
{
    if (message.state == Message::State::kUnparsed) {
        const std::string_view text = message.text;
        const bool good =
            text.size() <= INT_MAX && message.parser.Parse(text.data(), static_cast<int>(text.size())) == 0;
        message.state = good ? Message::State::kParsed : Message::State::kBroken;
        if (good)
            message.root = {&message.parser, message.parser.RootElement()};
    }
    return message.state == Message::State::kParsed;
}

bool lacksArgument(const Message& message, std::string_view code, void** result)
{
    return message.isNull() || !code.data() || !result;
}

int testArguments(const Message& message, void** result, const Leaf& leaf)
{
    if (message.isNull() || !result) {
        ZelProtocolLogError("%s put a empty Param\n", leaf.name);
        return ZEL_ERR_BAD_PARAM;
    }
    return 0;
}

int findRoot(Message& message, const Leaf& leaf)
{
    if (!parse(message)) {
        if (!leaf.quietParse)
            ZelProtocolLogError("%s Parse MsgBuf error\n", leaf.name);
        return ZEL_ERR_BAD_DOCUMENT;
    }
    if (!message.root) {
        ZelProtocolLogError("%s get RootElement error\n", leaf.name);
        return ZEL_ERR_BAD_DOCUMENT;
    }
    return 0;
}

int findBody(Message& message, const Leaf& leaf, ElementReader& body)
{
    body = message.root.child("MESSAGE_BODY");
    if (!body) {
        ZelProtocolLogError("%s get MESSAGE_BODY error\n", leaf.name);
        return ZEL_ERR_BAD_DOCUMENT;
    }
    return 0;
}

int missingElement(const Leaf& leaf, const char* element)
{
    ZelProtocolLogError("%s get %s error\n", leaf.name, element);
    return ZEL_ERR_NO_ELEMENT;
}

int openBody(Message& message, void** result, const Leaf& leaf, ElementReader& body)
{
    if (const int status = testArguments(message, result, leaf))
        return status;
    if (const int status = findRoot(message, leaf))
        return status;
    return findBody(message, leaf, body);
}

void* takeRecord(const RecordType& type, size_t tailSize)
{
    void* const block = tailSize <= SIZE_MAX - type.size ? ZelProtocolMalloc(type.size + tailSize) : nullptr;
    if (!block) {
        ZelProtocolLogError("Malloc Memory failed!\n");
        return nullptr;
    }
    // What the init leaves must not be somebody else's memory.
    if (type.initLeavesFields)
        memset(block, 0xFF, type.size);
    type.init(block);
    return block;
}

void* takeExtended(const RecordType& type, const RecordType& extension, size_t room)
{
    auto* const record = static_cast<char*>(takeRecord(type, room));
    if (!record)
        return nullptr;
    void* const behind = record + type.size;
    memset(behind, 0, room);
    extension.init(behind);
    memcpy(record + type.pointerAt, &behind, sizeof behind);
    return record;
}

int giveRecord(void** result, const RecordType& type, Side& side, List list)
{
    if (!result)
        return ZEL_ERR_BAD_PARAM;
    void* const record = takeRecord(type);
    if (!record)
        return ZEL_ERR_NO_MEMORY;
    list(side, record);
    *result = record;
    return 0;
}

} // namespace zel
