#include <iostream>
#include <memory>

#include "inspect/check.h"
#include "inspect/command.h"

namespace inspect {

namespace {

class Inspection
{
public:
    Inspection(const FileOptions& options, const Common& common)
        : m_options(options), m_common(common), m_cipher(common.cipher())
    {}

    int run()
    {
        for (const std::string& file : m_options.files) {
            std::string why;
            const int result = readOrTell(
                file, m_options.format, [&](const Found& found) { look(file, found); }, {}, why);
            m_result = std::max(m_result, result);
            std::cout.flush();
            std::cerr << why;
        }
        return m_result;
    }

private:
    void look(const std::string& file, const Found& found)
    {
        if (!found.damage.empty())
            return tell(file, found, std::string(found.damage));
        Cipher plain;
        const Analysed analysed = analyse(found.payload, found.isEnciphered ? m_cipher : plain);
        if (analysed.status < 0 && !analysed.isHeaderAlone())
            return tell(file, found, ZelProtocolStatusText(analysed.status));
        for (const Remark& remark : check(analysed, m_common.showSecrets)) {
            m_result = std::max<int>(m_result, kFound);
            if (m_common.json)
                printJson(file, found, analysed.message, remark);
            else
                print(file, found, analysed.message, remark);
        }
    }

    void print(const std::string& file, const Found& found, const Message& message, const Remark& remark)
    {
        std::cout << placeOf(file, found) << ": " << nameOf(message.index) << ": line " << remark.line
                  << ", column " << remark.column << ": " << nameOf(remark.finding) << ": ";
        if (!remark.path.empty())
            std::cout << toUtf8(remark.path, Charset::kUtf8) << ' ';
        std::cout << remark.detail << '\n';
    }

    void printJson(const std::string& file, const Found& found, const Message& message, const Remark& remark)
    {
        Json line = Json::object();
        addPlace(line, file, found);
        line["message"] = nameOf(message.index);
        line["finding"] = nameOf(remark.finding);
        line["line"] = remark.line;
        line["column"] = remark.column;
        if (!remark.path.empty())
            line["path"] = toUtf8(remark.path, Charset::kUtf8);
        line["detail"] = remark.detail;
        std::cout << line.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
    }

    // On standard error, in step with what is on standard output.
    void tell(const std::string& file, const Found& found, const std::string& what)
    {
        std::cout.flush();
        std::cerr << "zel: " << placeOf(file, found) << ": " << what << '\n';
        m_result = std::max<int>(m_result, kFound);
    }

    const FileOptions& m_options;
    const Common& m_common;
    Cipher m_cipher;
    int m_result = kFine;
};

} // namespace

void addCheck(CLI::App& zel, Common& common)
{
    const auto options = std::make_shared<FileOptions>();
    CLI::App& command =
        *zel.add_subcommand("check", "Tell what an analysis of such files tolerates in silence");
    addFileOptions(command, *options);
    addJsonOption(command, common);
    addSecretsOption(command, common);
    addCipherOptions(command, common);
    command.callback([options, &common] { common.result = Inspection(*options, common).run(); });
}

} // namespace inspect
