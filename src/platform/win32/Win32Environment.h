#pragma once

#include "platform/Applications.h"

namespace qb {

class Win32Environment : public Environment {
 public:
  std::string Variable(std::string_view name) override;
};

class Win32Debugger : public Debugger {
 public:
  void Stop() override;
};

}  // namespace qb
