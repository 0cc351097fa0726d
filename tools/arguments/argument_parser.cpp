#include "argument_parser.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <utility>
#include <vector>

namespace tamberline {
namespace {

using Words = std::vector<std::string>;

/// Splits a word such as "--name=" into the option and an empty value, because CLI11 would take the
/// next argument as the value.
Words wordsOf(int argc, char** argv) {
  Words words;
  for (int index = 1; index < argc; ++index) {
    std::string word = argv[index];
    const bool hasEmptyValue = word.starts_with("--") && word.find('=') == word.size() - 1;
    if (hasEmptyValue) {
      word.pop_back();
    }
    words.push_back(std::move(word));
    if (hasEmptyValue) {
      words.emplace_back();
    }
  }
  return words;
}

/// The unknown option at the beginning of `word`: the first letter of combined short options, such
/// as "-x" in "-xyz". The whole word for a long option, and for a letter beyond ASCII, which has
/// several bytes.
std::string refusedOption(const std::string& word) {
  const auto letter = static_cast<unsigned char>(word[1]);
  const bool isOneByte = letter > ' ' && letter < 0x80 && letter != '-';
  return isOneByte ? word.substr(0, 2) : word;
}

/// The error for surplus arguments. `words` begins with the first of them, or with "--" if that
/// precedes it.
std::string aboutSurplus(const Words& words) {
  const bool isAfterMark = words.front() == "--";
  const std::string& first = words.at(isAfterMark ? 1 : 0);
  const bool isOption = !isAfterMark && first.size() > 1 && first.front() == '-';
  return isOption ? "unknown option '" + refusedOption(first) + "'"
                  : "unexpected argument '" + first + "'";
}

bool isFlagWithValue(const CLI::App& app, const std::string& word) {
  const auto equals = word.find('=');
  const CLI::Option* const option =
      equals == std::string::npos ? nullptr : app.get_option_no_throw(word.substr(0, equals));
  const std::vector<CLI::App*> chosen = app.get_subcommands();
  return (option != nullptr && option->get_items_expected_max() == 0) ||
         std::any_of(chosen.begin(), chosen.end(), [&](const CLI::App* subcommand) {
           return isFlagWithValue(*subcommand, word);
         });
}

/// The error for a wrong number of values: a flag has a value, which counts as an unknown option,
/// or the last word lacks its value.
std::string aboutMismatch(const CLI::App& app, const Words& words) {
  const auto flag = std::find_if(words.begin(), words.end(), [&app](const std::string& word) {
    return isFlagWithValue(app, word);
  });
  return flag != words.end() ? "unknown option '" + *flag + "'"
                             : "option '" + words.back() + "' needs an argument";
}

/// The error in the arguments; absent if there is none.
std::optional<std::string> complaintAbout(const Words& words, CLI::App& app) {
  try {
    app.parse(Words(words.rbegin(), words.rend())); // CLI11 takes them from the end
    return std::nullopt;
  } catch (const CLI::ExtrasError&) {
    return aboutSurplus(app.remaining(/*recurse=*/true));
  } catch (const CLI::ArgumentMismatch&) {
    return aboutMismatch(app, words);
  } catch (const WrongArgument& error) {
    return error.what();
  }
}

} // namespace

ArgumentParser::ArgumentParser(const std::string& program)
    : ownApp_(std::make_unique<CLI::App>("", program)), app_(ownApp_.get()) {
  app_->set_help_flag(); // each program has its own help text
  app_->option_defaults()->take_last()->disable_flag_override();
  app_->require_subcommand(0, 1);
}

/// A subcommand inherits the settings of its program.
ArgumentParser::ArgumentParser(CLI::App* subcommand) : app_(subcommand) {
  app_->fallthrough();
}

ArgumentParser::~ArgumentParser() = default;

void ArgumentParser::addFlag(const std::string& names, bool& isGiven) {
  app_->add_flag(names, isGiven);
}

void ArgumentParser::addOption(const std::string& name, const TakeValue& takeValue) {
  app_->add_option_function<std::string>(name, takeValue);
}

void ArgumentParser::addLanguageOption(std::optional<AppLanguage>& language) {
  addOption("--language", [&language](const std::string& code) {
    language = AppLanguage::forCode(code);
    if (!language) {
      throw WrongArgument("there is no language '" + code + "'; there are en, de, fr, it, es");
    }
  });
}

ArgumentParser& ArgumentParser::addSubcommand(const std::string& name,
                                              std::function<void()> onChosen) {
  CLI::App* const subcommand = app_->add_subcommand(name);
  subcommand->preparse_callback(
      [onChosen = std::move(onChosen)](std::size_t /*wordCount*/) { onChosen(); });
  subcommands_.push_back(std::unique_ptr<ArgumentParser>(new ArgumentParser(subcommand)));
  return *subcommands_.back();
}

void ArgumentParser::checkAtEnd(std::function<void()> check) {
  app_->final_callback(std::move(check));
}

bool ArgumentParser::parse(int argc, char** argv) {
  const std::optional<std::string> complaint = complaintAbout(wordsOf(argc, argv), *app_);
  if (complaint) {
    std::fprintf(stderr, "%s: %s\n", app_->get_name().c_str(), complaint->c_str());
  }
  return !complaint;
}

} // namespace tamberline
