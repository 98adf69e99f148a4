#include "core/header.h"

#include "core/attributes.h"
#include "core/records.h"
#include "core/transparent_list.h"
#include "zel_platform/log.h"

namespace zel {

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
    attribute(element, "Msg_type", header.Msg_type);
    attribute(element, "Msg_code", header.Msg_code);
    attribute(element, "Msg_flag", header.Msg_flag);
    attribute(element, "Msg_uuid", header.Msg_uuid);
    attribute(element, "Msg_chn", header.Msg_chn);
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
    transparentAttributes(element, header);
}

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
