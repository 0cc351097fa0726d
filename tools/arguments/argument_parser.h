#pragma once

#include "i18n/app_language.h"

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tamberline {

/// Thrown by an ArgumentParser's callbacks for an invalid argument; the message explains the error.
class WrongArgument : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// Parses the arguments of a command-line program. If an option is repeated, its last value is
/// used. Hides CLI11, which takes so long to compile that only one source includes it.
class ArgumentParser {
public:
  using TakeValue = std::function<void(const std::string&)>;

  explicit ArgumentParser(const std::string& program);
  ArgumentParser(const ArgumentParser&) = delete;
  ArgumentParser& operator=(const ArgumentParser&) = delete;
  ~ArgumentParser();

  /// `names` as in "-h,--help".
  void addFlag(const std::string& names, bool& isGiven);
  /// An option with a value, such as "--reports"; without dashes, a positional argument, which
  /// may be given once.
  void addOption(const std::string& name, const TakeValue& takeValue);
  void addLanguageOption(std::optional<AppLanguage>& language);
  /// A subcommand, such as "save", with options and positional arguments of its own. The options of
  /// this parser are also accepted behind its name. `onChosen` is called if the arguments name it,
  /// before any of its values is taken. At most one subcommand can be chosen.
  ArgumentParser& addSubcommand(const std::string& name, std::function<void()> onChosen);
  /// `check` is called after all arguments have been parsed, to check combinations of them.
  void checkAtEnd(std::function<void()> check);

  /// False if the arguments are invalid; the reason is then printed to standard error.
  bool parse(int argc, char** argv);

private:
  explicit ArgumentParser(CLI::App* subcommand);

  std::unique_ptr<CLI::App> ownApp_; // null for a subcommand, which belongs to its program
  CLI::App* app_;
  std::vector<std::unique_ptr<ArgumentParser>> subcommands_;
};

} // namespace tamberline
