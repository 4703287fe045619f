#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "foundation/CTrace.h"
#include "runtime/TaggedValue.h"

namespace qb {

/// The link to TRADOS MultiTerm: brings it up, opens a terminology file in it and looks terms up. Every
/// command is the name of a DDE item; the answer is its text.
class CMultiTerm {
 public:
  static constexpr long kProgramNotFound = -2147221495;
  static constexpr long kNoConnection = -2147221496;

  CMultiTerm() = default;
  CMultiTerm(const CMultiTerm&) = delete;
  CMultiTerm& operator=(const CMultiTerm&) = delete;
  /// Closes a MultiTerm that was not running before.
  ~CMultiTerm();

  /// Whether a window of MultiTerm is there.
  bool IsRunning();

  /// Closes MultiTerm unless it was running before. Failures are dropped.
  void Quit();

  /// Starts MultiTerm unless it runs, and connects. False while its window is not up. Raises
  /// `kProgramNotFound` if it is not installed, and what start and connection raise.
  bool Init();

  /// Waits up to 20 seconds until MultiTerm is ready, letting events run, and opens a terminology file.
  /// Raises what the request to open it raises.
  bool Load(std::string_view strFile);

  /// Looks a term up, letting events run while MultiTerm searches; there is no limit to that. `strResult`
  /// holds lines of a hit, a tab and its target term, or is left alone for a term that would be a command.
  /// Raises what the requests raise.
  void Lookup(std::string_view strTerm, std::string& strResult);

  TaggedValue vntProcess;            ///< what starting MultiTerm gave back; 0 after `Quit`
  std::shared_ptr<CTrace> objTrace;  ///< may be absent, and is in this program
  std::string strBuffer;             ///< the terminology file as MultiTerm is told it
  std::string strProgram;            ///< path of MultiTerm's program
  bool bWasRunning = false;          ///< it ran before, and so is not to be closed

 private:
  bool FindProgram();
  void Connect();
  bool WaitUntilReady();

  /// Failures: a line for `objTrace`, and the error with the number and the same words.
  [[noreturn]] void Fail(long number, std::string_view why);
};

/// The link of the open package; exists once a TRADOS package was opened.
extern std::shared_ptr<CMultiTerm> gMultiTerm;

}  // namespace qb
