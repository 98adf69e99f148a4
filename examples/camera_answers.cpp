#include "camera_answers.h"

#include <sys/random.h>

#include <array>
#include <string_view>

namespace demo {

namespace {

constexpr const char* kWho = "camera";
constexpr int kMaxWrongPasswords = 3;

/** Looks at every byte of both texts, so that the time taken tells nothing about where they differ. */
bool sameSecret(std::string_view expected, std::string_view given)
{
    unsigned difference = expected.size() == given.size() ? 0 : 1;
    for (std::size_t i = 0; i < given.size() && !expected.empty(); ++i)
        difference |= static_cast<unsigned char>(given[i] ^ expected[i % expected.size()]);
    return difference == 0;
}

const User* findUser(const Service& service, std::string_view name, std::string_view password)
{
    for (const User& user : service.users)
        if (user.name == name && sameSecret(user.password, password))
            return &user;
    return nullptr;
}

/** Empty when the system gave no random bytes. */
std::string newSession()
{
    std::array<unsigned char, 12> random;
    if (::getentropy(random.data(), random.size()) != 0)
        return {};
    std::string session;
    for (const unsigned char byte : random) {
        session += "0123456789abcdef"[byte >> 4];
        session += "0123456789abcdef"[byte & 15];
    }
    return session;
}

/** A wrong password is answered like an unknown user: "FAIL", and neither a session nor a number of channels.
 */
Composed onLogin(const Exchange& exchange)
{
    const auto* login = recordIn<USER_AUTH_CMD_USER_AUTH_PARAM>(exchange.request);
    const User* user =
        login ? findUser(exchange.service, fieldText(login->Username), fieldText(login->Password)) : nullptr;
    const std::string id = user ? newSession() : std::string();
    Session& session = exchange.session;
    if (id.empty()) {
        session.closing = ++session.wrongPasswords == kMaxWrongPasswords;
        return refuse(exchange);
    }
    session.id = id;
    session.mayChangeSettings = user->mayChangeSettings;

    USER_AUTH_CMD_USER_AUTH_PARAM record;
    USER_AUTH_CMD_USER_AUTH_PARAM_init(&record);
    record.MAXChannels = exchange.service.device.identity.channels;
    record.Version = 1;
    setField(record.Sessionid, session.id);
    setField(record.Group, user->group);
    return answer(exchange, &record);
}

/** Tells where the camera looks, too. */
Composed onHeartbeat(const Exchange& exchange)
{
    const Position position = positionAt(exchange.service.device, Clock::now());
    ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM record;
    ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM_init(&record);
    setField(record.Ipcs_stat, "ready");
    setField(record.streamstat, std::to_string(exchange.session.streams.size()));
    setField(record.IpcAbility1, std::to_string(position.pan) + "," + std::to_string(position.tilt));
    return answer(exchange, &record);
}

Composed onVersion(const Exchange& exchange)
{
    const Identity& identity = exchange.service.device.identity;
    SYSTEM_CONTROL_1012_PARAM record;
    SYSTEM_CONTROL_1012_PARAM_init(&record);
    setField(record.KernelVersion, identity.kernel);
    setField(record.FileSystemVersion, identity.firmware);
    setField(record.DeviceIdentify, identity.model);
    setField(record.HardVersion, identity.hardware);
    record.ChannelId = 0;
    return answer(exchange, &record);
}

Composed onSerialNumber(const Exchange& exchange)
{
    SYSTEM_CONTROL_1019_PARAM record;
    SYSTEM_CONTROL_1019_PARAM_init(&record);
    setField(record.SerialNumber, exchange.service.device.identity.serial);
    return answer(exchange, &record);
}

std::string joined(const std::vector<std::string>& texts)
{
    std::string result;
    for (const std::string& text : texts)
        result += (result.empty() ? "" : ",") + text;
    return result;
}

/** What the camera can do, and what this user may do with it. */
Composed onAbilities(const Exchange& exchange)
{
    SYSTEM_CONTROL_1020_PARAM record;
    SYSTEM_CONTROL_1020_PARAM_init(&record);
    setField(record.SystemConfigString,
             "Resolution=" + joined(resolutions()) + ";Encode=" + joined(encodings()) + ";PTZ=1;Face=1");
    record.bRemoteAuthority = 0;
    setField(record.RemotePreview, "1");
    setField(record.RemotePlayback, "1");
    setField(record.PTZControl, "1");
    record.SystemSettings = exchange.session.mayChangeSettings ? 1 : 0;
    record.RemoteUpgrade = 0;
    record.TalkingEnble = 0;
    record.ShutDownSystem = 0;
    return answer(exchange, &record);
}

Composed onDeviceType(const Exchange& exchange)
{
    const Identity& identity = exchange.service.device.identity;
    SYSTEM_CONTROL_1030_PARAM record;
    SYSTEM_CONTROL_1030_PARAM_init(&record);
    record.IPC_Type = 1;
    record.DevMType = identity.type;
    record.DevType = identity.subType;
    record.SdkType = 0;
    record.Feature = identity.features;
    return answer(exchange, &record);
}

/** The queries of this family come without parameters; their code says all. */
Composed onControl(const Exchange& exchange)
{
    if (hasCode(exchange.request, "1012"))
        return onVersion(exchange);
    if (hasCode(exchange.request, "1019"))
        return onSerialNumber(exchange);
    if (hasCode(exchange.request, "1020"))
        return onAbilities(exchange);
    if (hasCode(exchange.request, "1030"))
        return onDeviceType(exchange);
    return refuse(exchange);
}

Composed onConfigGet(const Exchange& exchange)
{
    if (hasCode(exchange.request, "500"))
        return answer(exchange, &exchange.service.device.config);
    const Block* const kept =
        findSettings(exchange.service.settings, fieldText(exchange.request.header.Msg_code));
    return kept ? answer(exchange, kept->data()) : refuse(exchange);
}

Composed onConfigSet(const Exchange& exchange)
{
    const void* const wanted = recordIn<void>(exchange.request);
    if (!wanted || !exchange.session.mayChangeSettings)
        return refuse(exchange);
    const bool isChanged =
        hasCode(exchange.request, "520")
            ? changeConfig(exchange.service.device, *static_cast<const MediaConfig*>(wanted))
            : changeSettings(exchange.service.settings, fieldText(exchange.request.header.Msg_code), wanted);
    return isChanged ? answer(exchange, nullptr) : refuse(exchange);
}

/** All messages but transparent ones, which never come here. */
Composed answerPlainMessage(const Exchange& exchange)
{
    const Received& request = exchange.request;
    if (request.result != 0 && !isHeaderAlone(request))
        return refuse(exchange);
    if (hasType(request, kUserAuth))
        return onLogin(exchange);
    if (exchange.session.id.empty())
        return refuse(exchange);
    if (hasType(request, kHeartbeat))
        return onHeartbeat(exchange);
    if (hasType(request, kControl))
        return onControl(exchange);
    if (hasType(request, kConfigGet))
        return onConfigGet(exchange);
    if (hasType(request, kConfigSet))
        return onConfigSet(exchange);
    if (hasType(request, kLive))
        return onLive(exchange);
    if (hasType(request, kPtz))
        return onPtz(exchange);
    if (hasType(request, kReplay))
        return onReplay(exchange);
    if (hasType(request, kMediaData) && hasCode(request, "2"))
        return onDownload(exchange);
    return refuse(exchange);
}

/**
 * Answers the message inside a transparent one and wraps the answer likewise. What is too long to be wrapped,
 * a file's chunk say, is refused.
 *
 * The inner message is never unwrapped once more: one that brings a transparent header of its own would wrap
 * itself without end. Nor is it a search, whose answer no frame holds.
 */
Composed onTransparent(const Exchange& exchange)
{
    const auto& outer = recordOf<TRANSPARENT_HEADER>(exchange.request);
    const bool allowed = !exchange.session.id.empty() && fieldText(outer.Session_ID) == exchange.session.id;

    const Received inner = unwrapMessage(outer);
    printReceived(kWho, inner, "inside");
    if (isBare(inner.header))
        return refuse(exchange);
    Cipher plain;
    const Exchange innerExchange{exchange.service, exchange.session, inner, plain};
    const Composed innerAnswer = allowed ? answerPlainMessage(innerExchange) : refuse(innerExchange);
    printSent(kWho, innerAnswer, "inside");

    TRANSPARENT_HEADER record;
    TRANSPARENT_HEADER_init(&record);
    setField(record.Trans_Type, kTransparent);
    echoField(record.Channel_ID, outer.Channel_ID);
    echoField(record.Session_ID, outer.Session_ID);
    setField(record.Source_Type, "CAMERA");
    setField(record.Trans_Result, fieldText(innerAnswer.header.Msg_flag));
    if (!wrapMessage(record, innerAnswer))
        return refuse(exchange);
    return composeMessage(makeHeader(kTransparent, ""), &record, ZEL_KIND_RESPONSE, exchange.cipher);
}

} // namespace

ZEL_PROTOCOL_HEADER answerHeader(const Received& request, std::string_view flag)
{
    ZEL_PROTOCOL_HEADER header = makeHeader("", "");
    echoField(header.Msg_type, request.header.Msg_type);
    echoField(header.Msg_code, request.header.Msg_code);
    echoField(header.Msg_uuid, request.header.Msg_uuid);
    echoField(header.Msg_chn, request.header.Msg_chn);
    setField(header.Msg_flag, flag);
    return header;
}

Composed answer(const Exchange& exchange, const void* record)
{
    return composeMessage(answerHeader(exchange.request, kOk), record, ZEL_KIND_RESPONSE, exchange.cipher);
}

Composed refuse(const Exchange& exchange)
{
    return composeMessage(answerHeader(exchange.request, kFail), nullptr, ZEL_KIND_RESPONSE, exchange.cipher);
}

Composed answerMessage(const Exchange& exchange)
{
    return exchange.request.result > 0 ? onTransparent(exchange) : answerPlainMessage(exchange);
}

/** A search comes from anybody, so its answer names no accounts. */
Composed answerSearch(const Service& service, const Received& request)
{
    const Identity& identity = service.device.identity;
    const auto* search = recordIn<SYSTEM_SEARCHIPC_1_PARAM>(request);
    if (!search || !hasType(request, kSearch) || !hasCode(request, "1"))
        return {};
    const std::string_view vendor = fieldText(search->VendorId);
    if (!vendor.empty() && vendor != identity.vendor)
        return {};

    SYSTEM_SEARCHIPC_3_PARAM record;
    SYSTEM_SEARCHIPC_3_PARAM_init(&record);
    setField(record.VendorId, identity.vendor);
    setField(record.stDevice.Name, identity.vendor);
    setField(record.stDevice.SerialNumber, identity.serial);
    setField(record.stDevice.DeviceType, std::to_string(identity.type));
    setField(record.stDevice.DeviceModule, identity.model);
    setField(record.stDevice.FileSystemVersion, identity.firmware);
    setField(record.stDevice.OsdStr, fieldText(service.device.config.Title));
    record.stDevice.DevSubType = identity.subType;
    record.stDevice.Feature = identity.features;
    record.stDevice.iConnectionCountValid = 1;
    record.stDevice.Count[0] = static_cast<std::int16_t>(service.connections);
    setField(record.stLan.IPAddress, "127.0.0.1");
    setField(record.stLan.Netmask, "255.0.0.0");
    setField(record.stLan.DEV, "lo");
    record.stLan.DHCP = 0;
    record.stStream.Auth = 1;
    record.stStream.PTZPort = service.port;

    ZEL_PROTOCOL_HEADER header = answerHeader(request, kOk);
    setField(header.Msg_code, "3");
    Cipher plain;
    return composeMessage(header, &record, ZEL_KIND_RESPONSE, plain);
}

} // namespace demo
