#include "apps/qbt/CommandLine.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <iostream>

#include "apps/qbt/ExitCode.h"
#include "apps/qbt/Progress.h"
#include "foundation/Product.h"

namespace qb {
namespace {

constexpr const char* kDocumentHelp = "technical name, GUID or number (#3)";
constexpr std::array<std::string_view, 3> kMarks{"in-progress", "to-be-translated", "completed"};

constexpr const char* kFooter =
    "Exit codes: 0 fine; 1 findings, or a command was refused; 2 wrong command line; 3 something could not "
    "be\n"
    "read or written; 4 a question needed an answer; 130 interrupted. The manual page qbt(1) tells more.";

/// Builds the grammar over one `CommandLine`.
class Grammar {
 public:
  explicit Grammar(CommandLine& line) : line_(line) {
    app_.set_version_flag("--version", "qbt " + ProductVersion());
    app_.set_help_flag("-h,--help", "Show this help and end");
    // What starts with `/` is a path on every platform.
    app_.allow_windows_style_options(false);
    app_.require_subcommand(1);
    app_.footer(kFooter);
    AddCommonOptions(app_);
    AddReaders();
    AddChanges();
    AddComponents();
    AddNew();
  }

  CLI::App& App() { return app_; }

 private:
  /// They may stand in front of a command and behind it. Were they handed up instead, a title "list" would be
  /// taken for the command.
  void AddCommonOptions(CLI::App& app) {
    app.add_option("-p,--package", line_.package,
                   "The package file, or the folder that it stands in; without it the only .pxf file in the "
                   "current folder")
        ->type_name("PACKAGE");
    app.add_flag("-y,--yes", line_.yes, "Answer every question with yes");
    app.add_option("--trace", line_.trace, "Write the program's trace to this file")->type_name("FILE");
  }

  CLI::App& Sub(CLI::App& parent, const char* name, const char* help, Command command) {
    CLI::App& sub = *parent.add_subcommand(name, help);
    AddCommonOptions(sub);
    sub.final_callback([this, command] {
      line_.command = command;
      if (!document_.empty()) line_.documents = {document_};
      if (!file_.empty()) line_.files = {file_};
    });
    return sub;
  }

  void AddJson(CLI::App& sub) { sub.add_flag("--json", line_.json, "Write the result as JSON"); }

  void AddDocument(CLI::App& sub) {
    sub.add_option("DOC", document_, kDocumentHelp)->required()->type_name("");
  }

  void AddDocuments(CLI::App& sub) {
    sub.add_option("DOC", line_.documents, kDocumentHelp)->required()->type_name("");
  }

  void AddFiles(CLI::App& sub, const char* help) {
    sub.add_option("FILE", line_.files, help)->required()->type_name("");
  }

  void AddReaders() {
    CLI::App& list = Sub(app_, "list", "List the documents of the package", Command::kList);
    std::vector<std::string> words;
    words.reserve(kAllProgress.size());
    for (const Progress progress : kAllProgress) words.emplace_back(Word(progress));
    list.add_option("--state", line_.state, "Only documents that are this far")
        ->check(CLI::IsMember(words))
        ->type_name("");
    AddJson(list);
    CLI::App& show = Sub(app_, "show", "Show documents with all versions and files", Command::kShow);
    AddDocuments(show);
    AddJson(show);
    CLI::App& status = Sub(app_, "status", "Count documents and files by state and format", Command::kStatus);
    AddJson(status);
    CLI::App& check =
        Sub(app_, "check", "Check that the package is whole before it goes back", Command::kCheck);
    check.add_flag("--strict", line_.strict, "Warnings fail the check too");
    AddJson(check);
  }

  void AddChanges() {
    CLI::App& mark = Sub(app_, "mark", "Mark documents", Command::kMark);
    // One list, since a list takes all that follows it.
    mark.add_option(
            "DOC... STATE", line_.documents,
            fmt::format("documents, each by {}, and behind them the mark: in-progress, to-be-translated or "
                        "completed",
                        kDocumentHelp))
        ->required()
        ->expected(2, CLI::detail::expected_max_vector_size)
        ->type_name("");
    mark.final_callback([this] {
      line_.command = Command::kMark;
      line_.state = line_.documents.back();
      line_.documents.pop_back();
      const auto& marks = kMarks;
      if (std::find(marks.begin(), marks.end(), line_.state) == marks.end()) {
        throw CLI::ValidationError(line_.state, "is no mark: use in-progress, to-be-translated or completed");
      }
    });
    CLI::App& title = Sub(app_, "title", "Give a document its title in the target language", Command::kTitle);
    AddDocument(title);
    title.add_option("TEXT", line_.title, "the translated title")->required()->type_name("");
    CLI::App& assign =
        Sub(app_, "assign", "Check files in as a document's translation, the first as its primary file",
            Command::kAssign);
    AddDocument(assign);
    AddFiles(assign, "the translated file, and the files that belong to it");
    AddDocuments(Sub(app_, "translate", "Open documents in their editors, and wait until these have gone",
                     Command::kTranslate));
  }

  void AddComponents() {
    CLI::App& component = *app_.add_subcommand("component", "Change the files of a document's translation");
    component.require_subcommand(1);
    const auto named = [this](CLI::App& sub) {
      sub.add_option("COMPONENT", line_.component, "name of a file of the translation")
          ->required()
          ->type_name("");
    };
    CLI::App& add = Sub(component, "add", "Add files", Command::kComponentAdd);
    AddDocument(add);
    AddFiles(add, "a file to add");
    CLI::App& replace = Sub(component, "replace", "Replace a file by another", Command::kComponentReplace);
    AddDocument(replace);
    named(replace);
    replace.add_option("FILE", file_, "the file that takes its place")->required()->type_name("");
    CLI::App& replaceAll =
        Sub(component, "replace-all", "Replace all files, the first becomes the primary one",
            Command::kComponentReplaceAll);
    AddDocument(replaceAll);
    AddFiles(replaceAll, "two files or more, all of one folder");
    CLI::App& primary = Sub(component, "primary", "Make a file the primary one", Command::kComponentPrimary);
    AddDocument(primary);
    named(primary);
    CLI::App& remove = Sub(component, "delete", "Delete a file", Command::kComponentDelete);
    AddDocument(remove);
    named(remove);
  }

  void AddNew() {
    CLI::App& sub = Sub(app_, "new", "Make a package from a folder of source documents", Command::kNew);
    sub.add_option("DIR", line_.folder, "folder of the source documents")->required()->type_name("");
    sub.add_option("TARGET", line_.targetFolder,
                   "folder to make the package in; without it, DIR with the target language behind its name")
        ->type_name("");
    sub.add_option("--from", line_.sourceLanguage, "language of the sources, such as DE")
        ->required()
        ->type_name("LANGUAGE");
    sub.add_option("--to", line_.targetLanguage, "language to translate into, such as EN")
        ->required()
        ->type_name("LANGUAGE");
    sub.add_flag("--localization", line_.localization, "Make a package for localization");
    sub.add_option("--title", line_.title, "title of the package; without it, the name of DIR")
        ->type_name("TEXT");
  }

  CommandLine& line_;
  // Single ones, since a list would take what follows it too.
  std::string document_;
  std::string file_;
  CLI::App app_{"Works on translation packages in a terminal, with the commands of Quillbank Translator.",
                "qbt"};
};

}  // namespace

std::optional<CommandLine> ReadCommandLine(std::vector<std::string> arguments, int& exitCode) {
  CommandLine line;
  Grammar grammar(line);
  try {
    std::reverse(arguments.begin(), arguments.end());  // as the parser wants them
    grammar.App().parse(arguments);
    return line;
  } catch (const CLI::Success& asked) {
    exitCode = grammar.App().exit(asked) == 0 ? exitcode::kFine : exitcode::kUsage;
  } catch (const CLI::ParseError& error) {
    std::cerr << "qbt: " << error.what() << "\nqbt: run it with --help for more\n";
    exitCode = exitcode::kUsage;
  }
  return std::nullopt;
}

}  // namespace qb
