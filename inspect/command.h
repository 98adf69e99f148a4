/** What all of `zel`'s commands share. Each command is a file command_NAME.cpp with one function addNAME. */
#ifndef ZEL_INSPECT_COMMAND_H
#define ZEL_INSPECT_COMMAND_H

#include <CLI/CLI.hpp>
#include <iosfwd>
#include <string>

#include "inspect/json.h"
#include "inspect/message.h"

namespace inspect {

enum Exit : int
{
    kFine = 0,
    kFound = 1, // something wrong in what was looked at
    kMisused = 2
};

// The options of every command. They outlive the parsing.
struct Common
{
    bool json = false; // one object a line
    bool showSecrets = false;
    std::string charset; // "", "utf-8", "gb2312"
    std::string keyFile; // 32 bytes, or 64 hexadecimal digits
    int mode = 1;        // of the codec, for what is enciphered

    JsonOptions jsonOptions() const;
    Cipher cipher() const; // reads the key; throws a CLI::ValidationError with the file's name
    int result = kFine;    // the program's exit status
};

// Adds --json, --show-secrets, --charset.
void addOutputOptions(CLI::App& command, Common& common);
// Adds --key-file, --mode.
void addCipherOptions(CLI::App& command, Common& common);

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
