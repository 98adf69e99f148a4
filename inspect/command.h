/** What all of `zel`'s commands share. Each command is a file command_NAME.cpp with one function addNAME. */
#ifndef ZEL_INSPECT_COMMAND_H
#define ZEL_INSPECT_COMMAND_H

#include <CLI/CLI.hpp>
#include <iosfwd>
#include <string>

#include "inspect/json.h"
#include "inspect/message.h"
#include "inspect/source.h"

namespace inspect {

// A command that was used wrongly throws: a CLI::ParseError, or any other std::exception.
enum Exit : int
{
    kFine = 0,
    kFound = 1, // something wrong in what was looked at
    kMisused = 2
};

// The options of every command, and how it went. They outlive the parsing.
struct Common
{
    bool json = false; // one object a line
    bool showSecrets = false;
    std::string charset; // "", "utf-8", "gb2312"
    std::string keyFile; // 32 bytes, or 64 hexadecimal digits
    int mode = 1;        // of the codec, for what is enciphered
    int result = kFine;  // the program's exit status

    JsonOptions jsonOptions() const;
    // Reads the key, if there is one; throws a CLI::ValidationError with the file's name.
    Cipher cipher() const;
};

// Adds --json.
void addJsonOption(CLI::App& command, Common& common);
// Adds --show-secrets.
void addSecretsOption(CLI::App& command, Common& common);
// Adds --charset.
void addCharsetOption(CLI::App& command, Common& common);
// Adds --json, --show-secrets, --charset.
void addOutputOptions(CLI::App& command, Common& common);
// Adds --key-file, --mode.
void addCipherOptions(CLI::App& command, Common& common);

// FILE... and --format.
struct FileOptions
{
    std::vector<std::string> files;
    Format format = Format::kGuessed;
};

void addFileOptions(CLI::App& command, FileOptions& options);

// Reads one of them. Gives the exit status, and says why where it can't be read or isn't what it should be.
int readOrTell(const std::string& file, Format format, const Receive& receive, const Progress& progress,
               std::string& why);

// "2024-05-06T07:08:09.000000Z".
std::string timeText(double time);

// Where something was found: "file: 10.0.0.5:8000 > 10.0.0.9:4711: byte 96", and the same in JSON.
std::string placeOf(const std::string& file, const Found& found);
void addPlace(Json& json, const std::string& file, const Found& found);

// All that have a part in the name of their own, their operation's or a record's. Capitals don't matter.
std::vector<int> similarMessages(const std::string& part);

// The one message that a user names; throws a CLI::ValidationError that lists them where several fit.
int findMessage(const std::string& name);

// A message as a user describes it: MESSAGE [field=value ...].
struct MessageOptions
{
    std::string name;
    std::vector<std::string> fields;
    std::string file; // JSON as toJson gives it, of one message or more
    std::string kind;
    std::string dataFile;
    bool sample = false; // plausible values in place of absent ones
    bool force = false;  // texts that spoil the document too
};

// Adds the positional arguments MESSAGE and field=value, --kind, --data, --sample, --force, and an option of
// the given name for the JSON file.
void addMessageOptions(CLI::App& command, MessageOptions& options, const std::string& fileOption);

// The message with all that was told of it, or all those of the JSON file. Throws a JsonError or another
// std::exception that says what is wrong.
std::vector<Message> describedMessages(const MessageOptions& options, const JsonOptions& jsonOptions);

// A message of the catalogue as an object: type, code, word, record, kinds and so on.
Json entryToJson(int index);

// The whole of a file, "-" for the standard input; throws a std::runtime_error.
Bytes readWhole(const std::string& path);

// Its name and kind.
std::string headline(const Message& message);

// A message for people: a line for what it is, then a line for each field that isn't absent.
void print(std::ostream& out, const Message& message, const JsonOptions& options);

void addList(CLI::App& zel, Common& common);
void addShow(CLI::App& zel, Common& common);
void addRead(CLI::App& zel, Common& common);
void addCheck(CLI::App& zel, Common& common);
void addCompose(CLI::App& zel, Common& common);
void addSearch(CLI::App& zel, Common& common);
void addCall(CLI::App& zel, Common& common);
void addServe(CLI::App& zel, Common& common);

} // namespace inspect

#endif
