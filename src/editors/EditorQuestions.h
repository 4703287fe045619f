#pragma once

#include <functional>
#include <memory>

#include "editors/DocumentBridge.h"
#include "editors/HtmlParser.h"

namespace qb {

/// What the editing sessions ask of the program's entry, which knows what this machine offers. Without an
/// answer there is no office and no parser.
struct EditorQuestions {
  /// A new bridge; nothing where there is no office.
  std::function<std::shared_ptr<IBridge>()> newDocumentBridge;
  /// A package with documents for the bridge has been opened: what is slow to start may start, without a
  /// wait.
  std::function<void()> prepareOffice;
  /// The program ends, and what it started for its documents with it.
  std::function<void()> endOffice;
  /// A new parser of HTML files.
  std::function<std::shared_ptr<IHtmlParser>()> newHtmlParser;
  /// Whether a TRADOS package brings up the TRADOS tools; a program without a window of its own starts none.
  bool bringsUpTradosTools = false;
};
extern EditorQuestions gEditorQuestions;

}  // namespace qb
