/**
 * The camera's answers: from a received message to the one that goes back.
 */
#ifndef EXAMPLES_CAMERA_ANSWERS_H
#define EXAMPLES_CAMERA_ANSWERS_H

#include "camera_device.h"
#include "message_link.h"
#include "settings.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace demo {

/** A product keeps a salted hash in place of the password. */
struct User
{
    std::string name;
    std::string password;
    std::string group;
    bool mayChangeSettings = false;
};

/** What one client is to the camera. */
struct Session
{
    std::string id; /**< empty before the login */
    bool mayChangeSettings = false;
    int wrongPasswords = 0;
    std::vector<int> streams; /**< under way */
    bool closing = false;     /**< the connection ends behind the answer */
};

struct Service
{
    Device device;
    Settings settings = factorySettings(); /**< those that the device doesn't act on */
    std::vector<User> users;
    std::uint16_t port = 0; /**< for connections */
    std::size_t connections = 0;
};

/** A request and all that its answer depends on. */
struct Exchange
{
    Service& service;
    Session& session;
    const Received& request;
    Cipher& cipher;
};

/* camera_answers.cpp: the way to an answer, and what concerns the device and its settings. */

/** Answers a message of a connection, a transparent one too. All but the login needs a session. */
Composed answerMessage(const Exchange& exchange);

/** Answers a search; no bytes if it isn't one, or is for another vendor's devices. */
Composed answerSearch(const Service& service, const Received& request);

/** The request's own type, code and Msg_uuid: with it a client tells which answer belongs to which request.
 */
ZEL_PROTOCOL_HEADER answerHeader(const Received& request, std::string_view flag);

/** OK with a record, or without parameters if it is null. */
Composed answer(const Exchange& exchange, const void* record);

/** FAIL without parameters. */
Composed refuse(const Exchange& exchange);

/* camera_media.cpp: streams, motion, recordings and alarms. Each is called with a session. */

Composed onLive(const Exchange& exchange);
Composed onPtz(const Exchange& exchange);
Composed onReplay(const Exchange& exchange);
Composed onDownload(const Exchange& exchange);

/** An alarm with the face's feature block behind it. */
Composed faceAlarm(const Face& face, Cipher& cipher);

} // namespace demo

#endif
