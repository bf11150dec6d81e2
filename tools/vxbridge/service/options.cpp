#include "vxbridge/service/options.h"

#include "vxbridge/sign/verbs.h"
#include "vxctl/book/signBook.h"
#include "vxctl/cli/failure.h"

#include <CLI/CLI.hpp>
#include <unistd.h>
#include <vxsign/api.h>

#include <array>
#include <iostream>

namespace vxbridge {

namespace {

constexpr const char* kFooter =
    R"(Every option may stand in the file of --config, one "NAME = VALUE" a line. SIGHUP reads the book again, SIGTERM ends.

Examples:
  vxbridge --book signs.toml
  vxbridge --broker mqtts://broker.example --ca ca.pem --user-file user --password-file password
  vxbridge --config /etc/vxsign/vxbridge.conf
  mosquitto_rr -V 5 -t vx/a7/a7-north-012/cmd/show -e answers/1 -D publish correlation-data 1 -m '{"text": "HELLO"}')";

std::string HostName()
{
    std::array<char, 256> name{};
    return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "bridge";
}

// What is read from files, or looked at before it holds.
struct Texts
{
    std::string broker = "mqtt://127.0.0.1:1883";
    std::string userFile;
    std::string passwordFile;
    std::string folder;
    bool wantsVerbs = false;
};

void AddOptions(CLI::App& app, Settings& settings, Texts& texts)
{
    app.footer(kFooter);
    app.set_version_flag("--version", std::string("vxbridge, with libvxsign ") + vxAPIVersion());
    app.set_config("--config", "", "file with these options");
    app.add_option("--book", settings.bookFile, "the book of signs")->envname("VXBOOK")->type_name("FILE");
    app.add_option("--id", settings.id, "name of this bridge; no other of the broker may have it")
        ->type_name("NAME")
        ->default_str("the name of the host");
    app.add_option("--broker", texts.broker, "mqtt://HOST[:PORT], or mqtts:// for TLS")
        ->type_name("URL")
        ->capture_default_str();
    app.add_option("--user-file", texts.userFile, "file with the user for the broker")->type_name("FILE");
    app.add_option("--password-file", texts.passwordFile, "file with the password for the broker")->type_name("FILE");
    app.add_option("--ca", settings.broker.authorities, "certificates that the broker's one is to come from")
        ->type_name("FILE")
        ->default_str("those of the system");
    app.add_option("--cert", settings.broker.certificate, "certificate of this bridge")->type_name("FILE");
    app.add_option("--key", settings.broker.key, "its key")->type_name("FILE");
    app.add_option("--metrics", settings.metrics, "where /metrics and /probe are to be asked for; \"\" for nowhere")
        ->type_name("HOST:PORT")
        ->capture_default_str();
    app.add_option("--threads", settings.threads, "signs that are worked with at a time")
        ->check(CLI::Range(2, 1024))
        ->type_name("N")
        ->capture_default_str();
    app.add_option("--session", settings.sessionSeconds, "for so long the broker keeps commands without a bridge")
        ->check(CLI::Range(1, 86400))
        ->type_name("SECONDS")
        ->capture_default_str();
    app.add_option("--folder", texts.folder, "folder of the files that put may send")->type_name("FOLDER");
    app.add_flag("--allow-raw", settings.allowsRaw, "takes the verb raw");
    app.add_option("--home-assistant", settings.homeAssistant, "tells Home Assistant of the signs, below this prefix")
        ->type_name("PREFIX")
        ->expected(0, 1)
        ->default_str("homeassistant");
    app.add_flag("--verbs", texts.wantsVerbs, "prints the table of the verbs, and nothing else");
}

void Apply(const Texts& texts, Settings& settings)
{
    ParseBrokerUrl(texts.broker, settings.broker);
    if (!texts.userFile.empty())
        settings.broker.user = ReadSecret(texts.userFile);
    if (!texts.passwordFile.empty())
        settings.broker.password = ReadSecret(texts.passwordFile);
    if (!texts.folder.empty())
        settings.folder = SharedFolder(texts.folder);
    if (!vxctl::IsBookName(settings.id))
        throw vxctl::UsageError("'" + settings.id + "' is no name: letters, digits, '-', '_' and '.'");
}

} // namespace

std::optional<int> ReadOptions(int argc, char** argv, Settings& settings)
{
    settings.id = HostName();
    settings.metrics = "127.0.0.1:9720";
    Texts texts;
    CLI::App app("vxbridge, between LED signs and MQTT and Prometheus");
    AddOptions(app, settings, texts);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0)
            return app.exit(error);
        throw vxctl::UsageError(error.what());
    }
    if (texts.wantsVerbs) {
        std::cout << VerbTable();
        return EXIT_SUCCESS;
    }
    Apply(texts, settings);
    return std::nullopt;
}

} // namespace vxbridge
