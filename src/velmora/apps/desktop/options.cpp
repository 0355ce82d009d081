#include "velmora/apps/desktop/options.h"

#include <CLI/CLI.hpp>
#include <array>
#include <charconv>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include "velmora/platform/system/file_path.h"
#include "velmora/platform/version.h"

namespace velmora::desktop {

namespace {

constexpr std::array<std::pair<std::string_view, Opening>, 3> openings{{
    {"propuestas", Opening::proposals},
    {"seguimiento", Opening::tracking},
    {"parametros", Opening::parameters},
}};
constexpr std::string_view oneProposal = "propuesta=";
constexpr std::string_view demonstration = "demo";
constexpr std::string_view empty = "empty";

std::optional<std::int32_t> number(std::string_view text) {
    std::int32_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc{} && end == text.data() + text.size() && value > 0 ? std::optional(value) : std::nullopt;
}

bool readOpening(std::string_view text, Options& options) {
    for (const auto& [name, opening] : openings) {
        if (text == name) {
            options.opening = opening;
            return true;
        }
    }
    if (!text.starts_with(oneProposal)) {
        return false;
    }
    const auto proposal = number(text.substr(oneProposal.size()));
    options.opening = Opening::proposal;
    options.proposal = proposal.value_or(0);
    return proposal.has_value();
}

/// Empty for a file that is there, otherwise what is wrong.
std::string existingFile(const std::string& path) {
    std::error_code failure;
    return std::filesystem::is_regular_file(system::filePath(path), failure) ? std::string() : "no existe: " + path;
}

std::string after(const std::string& text, std::string_view mark) {
    const std::size_t at = text.find(mark);
    return at == std::string::npos ? text : text.substr(at + mark.size());
}

/// The library's errors have English words around the names of options.
std::string spanishFailure(const CLI::Error& error) {
    std::string text = error.what();
    if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) {
        return "no se conoce " + after(text, ": ");
    }
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) {
        return "a " + text.substr(0, text.find(':')) + " le falta su valor";
    }
    if (dynamic_cast<const CLI::ExcludesError*>(&error) != nullptr) {
        const std::size_t middle = text.find(" excludes ");
        return text.substr(0, middle) + " no va con " + after(text, " excludes ");
    }
    return text;
}

void speakSpanish(CLI::App& app) {
    constexpr std::array<std::pair<const char*, const char*>, 4> words{
        {{"Usage", "Uso"}, {"OPTIONS", "OPCIONES"}, {"Positionals", "Fichero"}, {"Excludes", "No con"}}};
    for (const auto& [english, spanish] : words) {
        app.get_formatter()->label(english, spanish);
    }
    app.option_defaults()->group("Opciones");
    app.failure_message([](const CLI::App*, const CLI::Error& e) {
        return "velmora: " + spanishFailure(e) + "\nLas opciones: velmora --help\n";
    });
}

}  // namespace

std::variant<Options, int> readOptions(int argc, const char* const* argv) {
    Options options;
    std::string open;
    CLI::App app{"VELMORA: propuestas de piñones especiales", "velmora"};
    speakSpanish(app);
    app.set_help_flag("-h,--help", "Escribe estas opciones y termina");
    app.set_version_flag("--version", "velmora " + platform::version(), "Escribe la versión y termina");
    auto* file =
        app.add_option("--db", options.database, "Base de datos; sin ella, la de la carpeta de datos del usuario")
            ->type_name("FICHERO");
    auto* server = app.add_option("--dsn", options.server, "Cadena de conexión de un servidor SQL Server")
                       ->type_name("TEXTO")
                       ->excludes(file);
    app.add_option("FICHERO", options.database, "Base de datos que se abre; tiene que existir")
        ->type_name("")
        ->excludes(file)
        ->excludes(server)
        ->check(existingFile);
    app.add_option_function<std::string>(
           "--data",
           [&options](const std::string& rows) {
               options.data = rows == demonstration ? NewRows::demonstration : NewRows::empty;
           },
           "Lo que tiene una base de datos nueva, sin preguntar: demo o empty")
        ->type_name("DATOS")
        ->check([](const std::string& text) {
            return text == demonstration || text == empty ? std::string() : "solo puede ser demo o empty: " + text;
        });
    app.add_option("--open", open, "Ventana que se abre: propuestas, seguimiento, parametros, propuesta=N")
        ->type_name("VENTANA")
        ->check([](const std::string& text) {
            Options trial;
            return readOpening(text, trial) ? std::string() : "ventana desconocida: " + text;
        });
    app.add_option("--pictures", options.pictures, "Escribe las imágenes de las ventanas en esta carpeta y termina")
        ->type_name("CARPETA");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        return app.exit(e);
    }
    if (!open.empty()) {
        readOpening(open, options);
    }
    return options;
}

}  // namespace velmora::desktop
