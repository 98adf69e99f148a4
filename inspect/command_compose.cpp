#include <cstdio>
#include <fstream>
#include <iostream>
#include <memory>

#include "inspect/command.h"
#include "inspect/sample.h"

namespace inspect {

namespace {

struct ComposeOptions
{
    MessageOptions message;
    std::string output; // a file; "-" is the standard output
    bool hex = false;
    bool text = false;
    bool encipher = false;
};

void printHex(std::string_view bytes)
{
    for (std::size_t at = 0; at < bytes.size(); at += 16) {
        const std::string_view line = bytes.substr(at, 16);
        char place[24];
        std::snprintf(place, sizeof place, "%08zx ", at);
        std::cout << place;
        std::string shown;
        for (std::size_t i = 0; i < 16; ++i) {
            char digits[8] = "   ";
            if (i < line.size())
                std::snprintf(digits, sizeof digits, "%02x ", static_cast<unsigned char>(line[i]));
            std::cout << (i == 8 ? " " : "") << digits;
            if (i < line.size())
                shown += line[i] >= ' ' && line[i] <= '~' ? line[i] : '.';
        }
        std::cout << " |" << shown << "|\n";
    }
}

void writeFile(const std::string& path, std::string_view bytes)
{
    if (path == "-") {
        std::cout << bytes;
        return;
    }
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file)
        throw std::runtime_error(path + " can't be written");
}

Composed composeOrThrow(const Message& message, Cipher cipher)
{
    Composed composed = compose(message, cipher);
    if (composed.status < 0)
        throw std::runtime_error("the message can't be composed: " +
                                 (composed.problem.empty()
                                      ? std::string(ZelProtocolStatusText(composed.status))
                                      : composed.problem));
    return composed;
}

void runCompose(const Common& common, const ComposeOptions& options)
{
    const bool isEnciphered = options.encipher || !common.keyFile.empty();
    Bytes sent;
    Bytes texts;
    for (const Message& message : describedMessages(options.message, common.jsonOptions())) {
        const Composed plain = composeOrThrow(message, Cipher());
        sent += isEnciphered ? composeOrThrow(message, common.cipher()).bytes : plain.bytes;
        texts.append(textOf(plain)).append("\n");
    }
    if (!options.output.empty())
        writeFile(options.output, sent);
    if (options.hex)
        printHex(sent);
    if (options.text || (options.output.empty() && !options.hex))
        std::cout << texts;
}

} // namespace

void addCompose(CLI::App& zel, Common& common)
{
    CLI::App* const command =
        zel.add_subcommand("compose", "Compose messages: their texts, a hex dump, or frames in a file");
    const auto options = std::make_shared<ComposeOptions>();
    addMessageOptions(*command, options->message, "--json");
    command
        ->add_option("-o,--output", options->output, "Write the frame to a file, - for the standard output")
        ->type_name("FILE");
    command->add_flag("--hex", options->hex, "Print the frame as a hex dump");
    command->add_flag("--text", options->text, "Print the text; without -o and --hex it always is");
    command->add_flag("--encipher", options->encipher, "Encipher the frame; with a key file it always is");
    addCharsetOption(*command, common);
    addCipherOptions(*command, common);
    command->callback([&common, options] { runCompose(common, *options); });
}

} // namespace inspect
