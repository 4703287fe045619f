#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/TaggedValue.h"

namespace qb {

class Environment {
 public:
  virtual ~Environment() = default;
  /// Empty if the variable is not set.
  virtual std::string Variable(std::string_view name) = 0;
};

/// Top-level windows of other programs.
class ApplicationWindows {
 public:
  virtual ~ApplicationWindows() = default;
  /// The window of exactly this class or title (an absent one does not count); 0 if there is none.
  virtual std::uintptr_t Find(std::optional<std::string_view> windowClass,
                              std::optional<std::string_view> title) = 0;
  /// Sends a copy-data record and returns the reply; with window 0 it has no effect. `payload` absent: no
  /// data.
  virtual std::int64_t SendCopyData(std::uintptr_t window, std::uintptr_t number,
                                    std::optional<std::u16string_view> payload) = 0;
  /// Brings the window of exactly this title to the front, sends it keystrokes, and returns when it has dealt
  /// with them or a bounded wait is over. "%{F4}" is Alt+F4. Raises 5 if there is no such window, or if the
  /// keys are none that are known here.
  virtual void SendKeys(std::string_view title, std::string_view keys) = 0;
};

/// The arguments of a call in their order. Nothing stands for one that is left out.
using CallArguments = std::vector<std::optional<TaggedValue>>;

/// An object of another program, reached by the names of its members.
class AutomationObject {
 public:
  virtual ~AutomationObject() = default;
  /// Raises what the object raises.
  virtual std::string TextProperty(std::string_view name) = 0;
  /// A member that is an object itself, or nothing. Raises 438 (no such member) unless the object has any.
  virtual std::shared_ptr<AutomationObject> ObjectProperty(std::string_view name);
  /// The elements of a collection in its order. Raises 438 if the object is none.
  virtual std::vector<std::shared_ptr<AutomationObject>> Elements();
  /// Calls a method and drops its result. Raises what the object raises, 438 if it has no such method.
  virtual void Call(std::string_view name, const CallArguments& arguments = {});
};

class Automation {
 public:
  virtual ~Automation() = default;
  /// The running object of a class such as "Visio.Application". Nothing where none runs.
  virtual std::shared_ptr<AutomationObject> ActiveObject(std::string_view className) = 0;
  /// A new object of a class; its program is started if need be. Raises 429 if it cannot be made.
  virtual std::shared_ptr<AutomationObject> NewObject(std::string_view className) = 0;
};

/// A debugger that may be watching the program.
class Debugger {
 public:
  virtual ~Debugger() = default;
  /// Stops the program in the debugger. Does nothing where none watches it.
  virtual void Stop() = 0;
};

}  // namespace qb
