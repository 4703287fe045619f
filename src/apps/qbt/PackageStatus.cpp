#include "apps/qbt/PackageStatus.h"

namespace qb {

Tally ProgressTally::All() const {
  Tally all;
  for (const Tally& tally : by) {
    all.documents += tally.documents;
    all.files += tally.files;
  }
  return all;
}

double ProgressTally::PercentCompleted() const {
  const std::size_t work = All().documents - (*this)[Progress::kReadOnly].documents;
  constexpr double kAll = 100.0;
  if (work == 0) return kAll;
  return kAll * static_cast<double>((*this)[Progress::kCompleted].documents) / static_cast<double>(work);
}

PackageStatus StatusOf(const PackageContents& contents) {
  PackageStatus status;
  for (const ListedDocument& document : contents.Documents()) {
    const CState state = contents.State(document);
    const Progress progress = ProgressOf(state);
    const ListedVersion* shown = document.Shown();
    const std::size_t files = shown == nullptr ? 0 : static_cast<std::size_t>(shown->FileCount());
    ++status.states[state.ExternalizeState()];
    ProgressTally& format = status.formats[contents.Source().Text(contents.Format(document))];
    for (ProgressTally* tally : {&status.all, &format}) {
      ++(*tally)[progress].documents;
      (*tally)[progress].files += files;
    }
  }
  return status;
}

}  // namespace qb
