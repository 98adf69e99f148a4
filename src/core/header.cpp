#include "core/header.h"

#include "core/families.h"
#include "zel_platform/log.h"

namespace zel {

void messageHeader(Side& side, ZEL_PROTOCOL_HEADER& header)
{
    attribute(side, "Msg_type", header.Msg_type);
    attribute(side, "Msg_code", header.Msg_code);
    attribute(side, "Msg_flag", header.Msg_flag);
    attributeIfSet(side, "Msg_uuid", header.Msg_uuid);
    attributeIfSet(side, "Msg_chn", header.Msg_chn);
}

void transparentHeader(Side& side, TRANSPARENT_HEADER& header)
{
    attribute(side, "Trans_Type", header.Trans_Type);
    attribute(side, "Channel_ID", header.Channel_ID);
    attribute(side, "Source_Type", header.Source_Type);
    attribute(side, "Session_ID", header.Session_ID);
    attribute(side, "Trans_Result", header.Trans_Result);
}

int GetMessageHeader(Message& message, ZEL_PROTOCOL_HEADER& header)
{
    if (!parse(message)) {
        ZelProtocolLogError("GetMessageHeader Parse xml error\n");
        return ZEL_ERR_BAD_DOCUMENT;
    }
    if (!message.root) {
        ZelProtocolLogError("GetMessageHeader get RootElement error\n");
        return ZEL_ERR_BAD_DOCUMENT;
    }
    const ElementReader element = message.root.child("MESSAGE_HEADER");
    if (!element) {
        ZelProtocolLogError("GetMessageHeader get MESSAGE_HEADER error\n");
        return ZEL_ERR_NO_ELEMENT;
    }
    TreeReader side(element);
    messageHeader(side, header);
    return 0;
}

int findTransparentHeader(Message& message, ElementReader& element)
{
    if (!parse(message))
        return ZEL_ERR_BAD_DOCUMENT;
    if (!message.root) {
        ZelProtocolLogError("GetTransparentHeader get RootElement error\n");
        return ZEL_ERR_BAD_DOCUMENT;
    }
    element = message.root.child("TRANSPARENT_HEADER");
    return element ? 0 : ZEL_ERR_NO_ELEMENT;
}

void readTransparentHeader(const ElementReader& element, TRANSPARENT_HEADER& header)
{
    TreeReader side(element);
    transparentHeader(side, header);
}

// --- Transparent messages ------------------------------------------------------------------------

extern constexpr MessageRow kTransparent =
    message<TRANSPARENT_HEADER_init>("GetTransparentHeader",
                                     within<transparentHeader>("TRANSPARENT_HEADER", Kinds::kAll))
        .leavingFields();

namespace {

constexpr CodeRow kTransparentCodes[] = {{0, &kTransparent, nullptr, 0, ""}};

} // namespace

// The entry points know its element, not its type.
extern constexpr Family kTransparentFamily("TRANSPARENT_CHANNEL_MSG", kTransparentCodes, nullptr, nullptr);

} // namespace zel

int ZEL_PROTOCOL_HEADER_init(ZEL_PROTOCOL_HEADER* header)
{
    return zel::initRecord(header, [](ZEL_PROTOCOL_HEADER& all) { zel::clear(all); });
}

int TRANSPARENT_HEADER_init(TRANSPARENT_HEADER* header)
{
    if (!header)
        return -1;
    zel::clear(header->Trans_Type, header->Channel_ID, header->Source_Type, header->Session_ID,
               header->Trans_Result);
    zel::setAbsent(header->iTransDataLen);
    return 0;
}

int GetMessageHeader(const char* text, ZEL_PROTOCOL_HEADER* header)
{
    if (!text || !header) {
        ZelProtocolLogError("Invalid input data %p %p\n", static_cast<const void*>(text),
                            static_cast<void*>(header));
        return -1;
    }
    zel::Message message(text);
    return zel::GetMessageHeader(message, *header);
}

int GetTransparentHeader(const char* text, TRANSPARENT_HEADER* header)
{
    if (!text || !header) {
        ZelProtocolLogError("Invalid input data %p %p\n", static_cast<const void*>(text),
                            static_cast<void*>(header));
        return ZEL_ERR_BAD_DOCUMENT;
    }
    zel::Message message(text);
    zel::ElementReader element;
    if (const int status = zel::findTransparentHeader(message, element))
        return status;
    zel::readTransparentHeader(element, *header);
    return 0;
}
