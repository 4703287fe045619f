#include "bench/PackageGenerator.h"

#include <fmt/format.h>

#include <cstdint>
#include <iterator>
#include <string_view>

namespace qb {
namespace {

/// 32 hexadecimal digits that look random, since real keys share no beginning.
std::string Guid(std::uint64_t number) {
  const auto scramble = [](std::uint64_t value) {  // the finaliser of splitmix64
    value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9U;
    value = (value ^ (value >> 27)) * 0x94D049BB133111EBU;
    return value ^ (value >> 31);
  };
  return fmt::format("{:016X}{:016X}", scramble(number * 2 + 1), scramble(number * 2 + 2));
}

void AppendVersion(std::string& text, int document, int version) {
  const bool target = version == 1;
  fmt::format_to(std::back_inserter(text),
                 "{0}PHIO={1}\r\n{0}CLASS=PAGE\r\n{0}ROLE={2}\r\n{0}PATH={3}\r\n{0}STATE={5}\r\n"
                 "{0}DOCUMENT_FORMAT=HTML\r\n{0}DESCRIPTION=\r\n{0}PROPSECTION=ADD{6}\r\n{0}FILE_COUNT=2\r\n"
                 "{0}FILE_NAME1=page{4}.html\r\n{0}FORMAT1=PRIM\r\n{0}SHORT_NAME1=page{4}.html\r\n"
                 "{0}FILE_NAME2=figure{4}.png\r\n{0}FORMAT2=\r\n{0}SHORT_NAME2=figure{4}.png\r\n",
                 version, Guid(static_cast<std::uint64_t>(document) * 4 + version),
                 target ? "DST_CURR" : "SRC_CURR", target ? "dst" : "src", document,
                 target ? "UNCHANGED" : "READONLY", document * 2 + version - 2);
}

}  // namespace

std::string DocumentKey(int document) {
  return Guid(static_cast<std::uint64_t>(document) * 4);
}

std::string PackageBytes(int documents) {
  std::string text = fmt::format(
      "[GLOBAL]\r\nTITLE=Package of {0} documents\r\nSRCLANGUAGE=DE\r\nDSTLANGUAGE=EN\r\nINFOBJS={0}\r\n"
      "FILESIZE=00000000\r\n\r\n[TRANS]\r\nTRANSTYPE=GEN\r\nQBT_WF=TRANS\r\n",
      documents);
  for (int document = 1; document <= documents; ++document) {
    fmt::format_to(std::back_inserter(text),
                   "\r\n[{0}]\r\nLOIO={1}\r\nCLASS=PAGE\r\nRVD_TECH_NAME=PAGE{0}\r\nPROCESS=HTML\r\n"
                   "MASTER=1\r\nSEQNR1={0}\r\nSEQNR2=0\r\nPHIO_COUNT=2\r\n",
                   document, DocumentKey(document));
    AppendVersion(text, document, 1);
    AppendVersion(text, document, 2);
  }
  for (int section = 1; section <= documents * 2; ++section) {
    fmt::format_to(
        std::back_inserter(text),
        "\r\n[ADD{0}]\r\nCOUNT=1\r\n1NAME=DESCRIPTION\r\n1VALUE=Page number {1}\r\n1INFO=Title\r\n", section,
        (section + 1) / 2);
  }
  return text;
}

}  // namespace qb
