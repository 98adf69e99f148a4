#include "inspect/command.h"

#include <algorithm>
#include <cstring>
#include <fstream>

namespace inspect {

namespace {

// Names that are listed where several messages fit.
constexpr std::size_t kMostNamed = 8;

int digitOf(char digit)
{
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    if (digit >= 'a' && digit <= 'f')
        return digit - 'a' + 10;
    return digit >= 'A' && digit <= 'F' ? digit - 'A' + 10 : -1;
}

bool readDigits(const std::string& text, ZEL_PLATFORM_KEY& key)
{
    const std::size_t end = std::min(text.find_last_not_of(" \r\n\t") + 1, text.size());
    if (end != 2 * sizeof key.bytes)
        return false;
    for (std::size_t i = 0; i < sizeof key.bytes; ++i) {
        const int high = digitOf(text[2 * i]);
        const int low = digitOf(text[2 * i + 1]);
        if (high < 0 || low < 0)
            return false;
        key.bytes[i] = static_cast<unsigned char>(16 * high + low);
    }
    return true;
}

ZEL_PLATFORM_KEY readKey(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw CLI::ValidationError("--key-file", path + " can't be read");
    std::string text(3 * ZEL_PLATFORM_KEY_BYTES, '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(file.gcount()));
    ZEL_PLATFORM_KEY key{};
    if (text.size() == sizeof key.bytes)
        std::memcpy(key.bytes, text.data(), sizeof key.bytes);
    else if (!readDigits(text, key))
        throw CLI::ValidationError("--key-file", path + " holds neither 32 bytes nor 64 hexadecimal digits");
    return key;
}

} // namespace

JsonOptions Common::jsonOptions() const
{
    JsonOptions options;
    options.showSecrets = showSecrets;
    if (!charset.empty())
        options.charset = charset == "utf-8" ? Charset::kUtf8 : Charset::kGb2312;
    return options;
}

Cipher Common::cipher() const
{
    Cipher cipher;
    cipher.mode = mode;
    if (!keyFile.empty())
        cipher.key = readKey(keyFile);
    return cipher;
}

void addJsonOption(CLI::App& command, Common& common)
{
    command.add_flag("--json", common.json, "Print one JSON object a line");
}

void addOutputOptions(CLI::App& command, Common& common)
{
    addJsonOption(command, common);
    command.add_flag("--show-secrets", common.showSecrets,
                     "Show passwords, keys and session names instead of ***");
    command.add_option("--charset", common.charset, "Of texts: utf-8, gb2312 (with GB18030), else guessed")
        ->check(CLI::IsMember({"utf-8", "gb2312"}, CLI::ignore_case));
}

void addCipherOptions(CLI::App& command, Common& common)
{
    command.add_option("--key-file", common.keyFile, "Key of enciphered frames: 32 bytes or 64 hex digits")
        ->type_name("FILE");
    command.add_option("--mode", common.mode, "The codec's mode, for both ends the same")
        ->check(CLI::NonNegativeNumber)
        ->capture_default_str();
}

int findMessage(const std::string& name)
{
    const std::vector<int> found = findMessages(name);
    if (found.empty())
        throw CLI::ValidationError(name, "is no message that the catalogue knows; see zel list");
    if (found.size() == 1)
        return found.front();
    std::string names = "may be any of " + std::to_string(found.size()) + " messages:";
    for (std::size_t i = 0; i < std::min(found.size(), kMostNamed); ++i)
        names += "\n  " + nameOf(found[i]);
    if (found.size() > kMostNamed)
        names += "\n  ...";
    throw CLI::ValidationError(name, names);
}

} // namespace inspect
