#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/Applications.h"

namespace qb {

/// The link to TRADOS Translator's Workbench: brings it up and opens a translation memory in it.
class CTradosTwb {
 public:
  CTradosTwb() = default;
  CTradosTwb(const CTradosTwb&) = delete;
  CTradosTwb& operator=(const CTradosTwb&) = delete;
  /// Closes the Workbench.
  ~CTradosTwb();

  /// Does nothing and gives an empty text; the argument is not used.
  std::string Cleanup(std::string_view unused);

  /// Closes the Workbench, also one that the user had open before. Raises what it raises.
  void Quit();

  /// Opens a translation memory for the user. Always true; raises what the Workbench raises, 91 without a
  /// link.
  bool LoadTM(std::string_view strFile);

  /// Whether a window of the Workbench is there; its title does not count.
  bool IsTwbRunning();

  /// Links to the running Workbench, or starts one. Whether the link stands; failures are dropped. The
  /// argument is not used.
  bool Init(std::string_view unused);

  /// The user's name of the options.
  const std::string& UserID() const;

 private:
  std::shared_ptr<AutomationObject> workbench_;  // nothing: no link
};

/// The link of the open package; exists once a TRADOS package was opened.
extern std::shared_ptr<CTradosTwb> gTwb;

}  // namespace qb
