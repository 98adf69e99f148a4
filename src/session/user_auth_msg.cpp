#include "zel_protocol/user_auth.h"

#include "core/families.h"
#include "zel_platform/log.h"

namespace zel {

namespace {

using UserAuth = USER_AUTH_CMD_USER_AUTH_PARAM;

// --- Attribute lists, for both directions --------------------------------------------------------

void request(Side& side, UserAuth& record)
{
    if (const Element user = element(side, "USER_AUTH_PARAM")) {
        wholeFieldAttribute(side, "Username", record.Username);
        wholeFieldAttribute(side, "Password", record.Password);
        // Where it is written, the element closes directly behind it.
        if (side.takes(isSet(record.AuthMethod))) {
            atoiAttribute(side, "AuthMethod", record.AuthMethod);
            endAtQuote(side);
        }
    }
    if (!side.writes())
        return;
    if (const Element vendor = elementIf(isSet(record.VendorId), side, "VENDOR_PARAM", kOnLine | kBlankAtEnd))
        attributeBehindBlank(side, "VendorId", record.VendorId);
    if (const Element encrypt = element(side, "ENCRYPT")) {
        attribute(side, "Capbility", record.Capbility);
        attribute(side, "Version", record.Version);
        attributeIfSet(side, "KeyTypeVer", record.KeyTypeVer);
    }
}

void response(Side& side, UserAuth& record)
{
    if (const Element session = elementIf(isAnySet(record.MAXChannels, record.Sessionid, record.Group), side,
                                          "USER_AUTH_RESPONSE")) {
        wholeFieldAttributeIfSet(side, "Sessionid", record.Sessionid);
        wholeFieldAttributeIfSet(side, "Group", record.Group);
        atoiAttributeIfSet(side, "MAXChannels", record.MAXChannels);
    }
    if (const Element encrypt =
            elementIf(isAnySet(record.Version, record.KeyTypeVer, record.Capbility), side, "ENCRYPT")) {
        wholeFieldAttributeIfSet(side, "Capbility", record.Capbility);
        atoiAttributeIfSet(side, "Version", record.Version);
        atoiAttributeIfSet(side, "KeyTypeVer", record.KeyTypeVer);
    }
}

// Whatever is there is read, of either direction.
void readBody(Side& side, UserAuth& record)
{
    response(side, record);
    request(side, record);
}

void startWithoutBody(Side&, UserAuth& record)
{
    record.KeyTypeVer = 0;
}

// --- Leaf ----------------------------------------------------------------------------------------

int analyseLogin(const MessageRow& row, Message& message, void** result)
{
    if (const int status = findRoot(message, row.leaf))
        return status;
    TreeReader side(message.root.child("MESSAGE_BODY"));
    if (side.at)
        return giveRecord(result, row.record, side, Erased<readBody>::call);
    ZelProtocolLogError(
        "USER_AUTH_MESSAGE UserAuthMessageAnalysis get MESSAGE_BODY error or No MessageBody\n");
    return giveRecord(result, row.record, side, Erased<startWithoutBody>::call);
}

constexpr MessageRow kUserAuth = message<USER_AUTH_CMD_USER_AUTH_PARAM_init>(
                                     "USER_AUTH_MESSAGE UserAuthMessageAnalysis",
                                     body<request>(Kinds::kNotResponses), body<response>(Kinds::kResponses))
                                     .quiet()
                                     .analysedBy(analyseLogin);

constexpr CodeRow kCodes[] = {{0, &kUserAuth, nullptr, 0, ""}};

} // namespace

extern constexpr Family kUserAuthFamily("USER_AUTH_MESSAGE", kCodes, composeOnly, analyseOnly);

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int USER_AUTH_CMD_USER_AUTH_PARAM_init(USER_AUTH_CMD_USER_AUTH_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.Username, record.Password, record.VendorId, record.Capbility, record.Sessionid,
                   record.Group);
    });
}

int UserAuthMessageCompose(const void* record, int kind, char* buf, int len)
{
    return zel::composeBody(zel::kUserAuthFamily, record, kind, "", buf, len);
}

int UserAuthMessageAnalysis(const char* text, void** result)
{
    return zel::analyseText(zel::kUserAuthFamily, text, "", result);
}
