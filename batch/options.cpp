#include "batch/options.h"

#include <CLI/CLI.hpp>
#include <array>
#include <charconv>
#include <string_view>
#include <utility>

namespace velta {

namespace {

constexpr const char* kHelp =
    R"(Spočítá úrok z prodlení pro každý řádek souboru CSV a přidá k němu sloupce s výsledkem.

Použití:
  velta-batch [VOLBY] [SOUBOR]
  velta-batch faktury.csv > uroky.csv

Bez souboru, nebo je-li místo něj -, čte standardní vstup. Výsledek píše na standardní výstup.

Volby:
  --zaokrouhlit ZPUSOB   ne, halere (na 10 haléřů nahoru) nebo koruny (na celé koruny);
                         bez volby halere
  --podrobne             pro každé pololetí jeden řádek, mění-li se sazba po pololetích
  --format FORMAT        csv, nebo jsonl (objekt JSON na každém řádku); bez volby csv
  --oddelovac ZNAK       ; nebo , nebo tab; bez volby podle hlavičky
  --desetinny ZNAK       carka nebo tecka; bez volby podle prvních řádků
  --sazby SLOZKA         složka s tabulkami cnb.dat a repo.dat; bez volby složka programu
  --vlaken N             kolik vláken počítá; bez volby všechna jádra
  -h, --help             vypíše tuto nápovědu
  -v, --version          vypíše verzi programu

Sloupce vstupu, v libovolném pořadí (UTF-8, první řádek je hlavička):
  splatnost, zaplaceno   d.m.rrrr nebo rrrr-mm-dd
  castka                 zaplacená částka v Kč
  druh                   % denně, % ročně, ‰ denně, ‰ ročně, diskont, repo, zakonna
  sazba                  u sazeb v % a ‰
  faktura, dluh          platby jedné faktury stojí pod sobě a mají stejnou hodnotu
                         ve sloupci faktura; celá částka faktury je ve sloupci dluh
Ostatní sloupce zůstanou, jak jsou. Přibudou dny, regim, sazba_pouzita, urok, celkem a chyba,
s volbou --podrobne před nimi od a do.

Návratový kód: 0 vše spočítáno, 1 některé řádky nelze spočítat (důvod je ve sloupci chyba),
2 soubor nebo tabulky nelze číst, výstup nelze zapsat nebo jsou chybné volby.
)";

/// A value that an option may have, and what it means.
template <class Value>
struct Choice {
  std::string_view name;
  Value value;
};

constexpr std::array<Choice<Rounding>, 3> kRoundings = {{{"ne", Rounding::kNone},
                                                         {"halere", Rounding::kUpToTenHaler},
                                                         {"koruny", Rounding::kToCrowns}}};
constexpr std::array<Choice<OutputFormat>, 2> kFormats = {
    {{"csv", OutputFormat::kCsv}, {"jsonl", OutputFormat::kJsonLines}}};
constexpr std::array<Choice<char>, 7> kSeparators = {{{";", ';'},
                                                      {"strednik", ';'},
                                                      {",", ','},
                                                      {"carka", ','},
                                                      {"tab", '\t'},
                                                      {"tabulator", '\t'},
                                                      {"\t", '\t'}}};
constexpr std::array<Choice<char>, 4> kDecimalSigns = {
    {{"carka", ','}, {",", ','}, {"tecka", '.'}, {".", '.'}}};

struct UsageError {
  std::string reason;
};

/// The value of an option that was given, else the one before.
template <class Value, class Result, std::size_t kCount>
void Choose(const CLI::Option& option, const std::array<Choice<Value>, kCount>& choices,
            const char* allowed, Result& result) {
  if (option.count() == 0) return;
  const std::string text = option.as<std::string>();
  for (const auto& choice : choices) {
    if (choice.name != text) continue;
    result = choice.value;
    return;
  }
  throw UsageError{"volba " + option.get_name() + " může být " + allowed};
}

unsigned Threads(const std::string& text) {
  constexpr unsigned kMost = 1024;
  unsigned threads = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, threads);
  if (error != std::errc() || stop != end || threads == 0 || threads > kMost) {
    throw UsageError{"volba --vlaken je počet vláken od 1 do " + std::to_string(kMost)};
  }
  return threads;
}

/// What the library found wrong, in our words.
std::string Reason(const CLI::ParseError& error, const CLI::App& app) {
  if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr && !app.remaining().empty()) {
    return "neočekávaný argument " + app.remaining().front();
  }
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) {
    const std::string text = error.what();
    if (text.find(':') != text.npos)
      return "volbě " + text.substr(0, text.find(':')) + " chybí hodnota";
  }
  return "volby nejsou srozumitelné";
}

}  // namespace

std::variant<BatchOptions, BatchAnswer> ReadOptions(int argc, const char* const* argv,
                                                    const std::string& version) {
  BatchOptions options;
  CLI::App app;
  app.set_help_flag();
  bool help = false;
  bool show_version = false;
  app.add_flag("-h,--help", help);
  app.add_flag("-v,--version", show_version);
  app.add_flag("--podrobne", options.by_half_years);
  std::string ignored;
  const auto add = [&](const char* name) { return app.add_option(name, ignored)->take_last(); };
  const CLI::Option* const rounding = add("--zaokrouhlit");
  const CLI::Option* const format = add("--format");
  const CLI::Option* const separator = add("--oddelovac");
  const CLI::Option* const decimal_sign = add("--desetinny");
  const CLI::Option* const threads = add("--vlaken");
  app.add_option("--sazby", options.rates_folder)->take_last();
  app.add_option("soubor", options.file);
  try {
    app.parse(argc, argv);
    if (help) return BatchAnswer{kHelp};
    if (show_version) return BatchAnswer{"velta-batch " + version + "\n"};
    Choose(*rounding, kRoundings, "ne, halere nebo koruny", options.rounding);
    Choose(*format, kFormats, "csv nebo jsonl", options.format);
    Choose(*separator, kSeparators, "; nebo , nebo tab", options.separator);
    Choose(*decimal_sign, kDecimalSigns, "carka nebo tecka", options.decimal_sign);
    if (threads->count() > 0) options.threads = Threads(threads->as<std::string>());
  } catch (const CLI::ParseError& error) {
    return BatchAnswer{Reason(error, app), 2};
  } catch (const UsageError& error) {
    return BatchAnswer{error.reason, 2};
  }
  if (options.file == "-") options.file.clear();
  return options;
}

}  // namespace velta
