#include "zel_protocol/user_auth.h"

#include "core/families.h"
#include "core/records.h"
#include "zel_platform/log.h"

namespace zel {

namespace {

constexpr char kFamily[] = "USER_AUTH_MESSAGE";

using UserAuth = USER_AUTH_CMD_USER_AUTH_PARAM;

constexpr auto userAttributes = [](auto& side, auto& record) {
    wholeFieldAttribute(side, "Username", record.Username);
    wholeFieldAttribute(side, "Password", record.Password);
};

constexpr auto responseAttributes = [](auto& side, auto& record) {
    wholeFieldAttributeIfSet(side, "Sessionid", record.Sessionid);
    wholeFieldAttributeIfSet(side, "Group", record.Group);
    atoiAttributeIfSet(side, "MAXChannels", record.MAXChannels);
};

constexpr auto encryptAttributes = [](auto& side, auto& record) {
    wholeFieldAttributeIfSet(side, "Capbility", record.Capbility);
    atoiAttributeIfSet(side, "Version", record.Version);
    atoiAttributeIfSet(side, "KeyTypeVer", record.KeyTypeVer);
};

void composeRequest(TextWriter& out, const UserAuth& record)
{
    element(out, "USER_AUTH_PARAM", [&](TextWriter& side) {
        userAttributes(side, record);
        if (isSet(record.AuthMethod)) {
            attribute(side, "AuthMethod", record.AuthMethod);
            side.takeBack();
        }
    });
    if (isSet(record.VendorId)) {
        out.append("<VENDOR_PARAM VendorId =\"");
        appendText(out, record.VendorId);
        out.append("\" />\n");
    }
    element(out, "ENCRYPT", [&](TextWriter& side) {
        attribute(side, "Capbility", record.Capbility);
        attribute(side, "Version", record.Version);
        attributeIfSet(side, "KeyTypeVer", record.KeyTypeVer);
    });
}

void composeResponse(TextWriter& out, const UserAuth& record)
{
    if (isSet(record.MAXChannels) || isSet(record.Sessionid) || isSet(record.Group))
        element(out, "USER_AUTH_RESPONSE", [&](TextWriter& side) { responseAttributes(side, record); });
    if (isSet(record.Version) || isSet(record.KeyTypeVer) || isSet(record.Capbility))
        element(out, "ENCRYPT", [&](TextWriter& side) { encryptAttributes(side, record); });
}

void readBody(const ElementReader& body, UserAuth& record)
{
    element(body, "USER_AUTH_RESPONSE", [&](auto& side) { responseAttributes(side, record); });
    element(body, "ENCRYPT", [&](auto& side) { encryptAttributes(side, record); });
    element(body, "USER_AUTH_PARAM", [&](auto& side) {
        userAttributes(side, record);
        atoiAttribute(side, "AuthMethod", record.AuthMethod);
    });
}

} // namespace

int UserAuthMessageCompose(TextWriter& out, const void* record, int kind)
{
    const auto& login = as<UserAuth>(record);
    if (isResponse(kind))
        composeResponse(out, login);
    else
        composeRequest(out, login);
    return 0;
}

int UserAuthMessageAnalysis(Message& message, void** result)
{
    if (message.isNull() || !result)
        return emptyParam(kFamily);
    if (const int status = findRoot(message, {"USER_AUTH_MESSAGE UserAuthMessageAnalysis", true}))
        return status;
    const ElementReader body = message.root.child("MESSAGE_BODY");
    if (!body)
        ZelProtocolLogError(
            "USER_AUTH_MESSAGE UserAuthMessageAnalysis get MESSAGE_BODY error or No MessageBody\n");
    return giveRecord(result, USER_AUTH_CMD_USER_AUTH_PARAM_init, [&](UserAuth& record) {
        if (body)
            readBody(body, record);
        else
            record.KeyTypeVer = 0;
    });
}

} // namespace zel

int USER_AUTH_CMD_USER_AUTH_PARAM_init(USER_AUTH_CMD_USER_AUTH_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.Username, record.Password, record.VendorId, record.Capbility, record.Sessionid,
                   record.Group);
    });
}

int UserAuthMessageCompose(const void* record, int kind, char* buf, int len)
{
    return zel::composeOnly<zel::UserAuthMessageCompose>(zel::kFamily, record, kind, buf, len);
}

int UserAuthMessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::UserAuthMessageAnalysis>(text, result);
}
