#include "inspect/secrets.h"

#include <algorithm>
#include <iterator>

namespace inspect {

namespace {

struct Secret
{
    std::string_view record;
    std::string_view field;
};

// The reviewed list. A test finds a field whose name or comment speaks of a secret and that isn't here.
constexpr Secret kSecrets[] = {
    {"REVERSE_AUDIO_CMD_RA_START_PARAM", "Sessionid"},
    {"REVERSE_AUDIO_CMD_RA_STOP_PARAM", "Sessionid"},
    {"SYSTEM_CONFIG_ACCOUNT", "Password"},
    {"SYSTEM_CONFIG_ACCOUNT_ROW", "Password"},
    {"SYSTEM_CONFIG_CHANNEL_INFO", "Password"},
    {"SYSTEM_CONFIG_GB28181_CONFIG", "Passwd"},
    {"SYSTEM_CONFIG_GET_1425_PARAM", "Session_ID"},
    {"SYSTEM_CONFIG_GET_2015_PARAM", "SipUserPassword"},
    {"SYSTEM_CONFIG_GET_2515_PARAM", "Passwd"},
    {"SYSTEM_CONFIG_GET_315_PARAM", "Passwd"},
    {"SYSTEM_CONFIG_GET_3801_PARAM", "Password"},
    {"SYSTEM_CONFIG_PPTP_CONFIG", "Password"},
    {"SYSTEM_CONFIG_SET_3809_PARAM", "Password"},
    {"SYSTEM_CONFIG_SET_3812_PARAM", "Password"},
    {"SYSTEM_CONFIG_SET_820_PARAM", "Password"},
    {"SYSTEM_CONTROL_3026_PARAM", "InProjectPwd"},
    {"SYSTEM_ENCRYPT_150_PARAM", "KeyValue"},
    {"SYSTEM_SEARCHIPC_ACCOUNT", "Password"},
    {"TRANSPARENT_HEADER", "Session_ID"},
    {"USER_AUTH_CMD_USER_AUTH_PARAM", "Password"},
    {"USER_AUTH_CMD_USER_AUTH_PARAM", "Sessionid"},
};

// Attributes with other names than their fields.
constexpr std::string_view kOtherNames[] = {"CloudPasswd"};

bool isBlank(char byte)
{
    return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
}

bool isNameByte(char byte)
{
    return !isBlank(byte) && byte != '"' && byte != '\'' && byte != '=' && byte != '<' && byte != '>';
}

// The attribute's name in front of an equals sign, with or without white space between them.
std::string_view nameBefore(std::string_view text)
{
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    std::size_t start = text.size();
    while (start > 0 && isNameByte(text[start - 1]))
        --start;
    return text.substr(start);
}

struct Range
{
    std::size_t begin = 0;
    std::size_t end = 0;
};

// The next value of a secret attribute; empty at the text's end where there is none.
Range nextSecret(std::string_view text, std::size_t from)
{
    for (std::size_t sign = text.find('=', from); sign != std::string_view::npos;
         sign = text.find('=', sign + 1)) {
        if (!isSecretAttribute(nameBefore(text.substr(from, sign - from))))
            continue;
        const std::size_t start = text.find_first_not_of(" \t\r\n", sign + 1);
        if (start == std::string_view::npos)
            break;
        const bool isQuoted = text[start] == '"' || text[start] == '\'';
        const std::size_t begin = isQuoted ? start + 1 : start;
        const std::size_t end =
            isQuoted ? text.find(text[start], begin) : text.find_first_of(" \t\r\n/>", begin);
        return {begin, std::min(end, text.size())};
    }
    return {text.size(), text.size()};
}

} // namespace

bool isSecret(std::string_view record, std::string_view field)
{
    return std::any_of(std::begin(kSecrets), std::end(kSecrets), [=](const Secret& secret) {
        return secret.record == record && secret.field == field;
    });
}

bool isSecretAttribute(std::string_view name)
{
    return std::any_of(std::begin(kSecrets), std::end(kSecrets),
                       [=](const Secret& secret) { return secret.field == name; }) ||
           std::find(std::begin(kOtherNames), std::end(kOtherNames), name) != std::end(kOtherNames);
}

std::string hideSecrets(std::string_view text)
{
    std::string shown;
    std::size_t done = 0;
    while (done < text.size()) {
        const Range value = nextSecret(text, done);
        shown.append(text, done, value.begin - done);
        if (value.begin < value.end)
            shown += kHidden;
        done = value.end;
    }
    return shown;
}

bool holdsHidden(std::string_view text)
{
    for (Range value = nextSecret(text, 0); value.begin < text.size(); value = nextSecret(text, value.end))
        if (text.substr(value.begin, value.end - value.begin) == kHidden)
            return true;
    return false;
}

} // namespace inspect
