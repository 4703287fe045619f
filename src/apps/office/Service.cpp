#include "apps/office/Service.h"

#include <poll.h>

#include <algorithm>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/frame/XFrames.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <exception>
#include <iostream>
#include <memory>
#include <optional>
#include <utility>

#include "apps/office/Answers.h"
#include "apps/office/CustomTitle.h"
#include "apps/office/DocumentLinks.h"
#include "apps/office/Failure.h"
#include "apps/office/FileChecks.h"
#include "apps/office/Lines.h"
#include "apps/office/WindowPlaces.h"

namespace qb::office {

using nlohmann::json;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

namespace {

/// A document that is closed sooner after its loading can take the office with it.
constexpr milliseconds kLoadedToClosed{1000};
constexpr milliseconds kBetweenAttemptsToClose{200};
/// A dialog that is not answered meanwhile keeps its document open.
constexpr milliseconds kDialog{10000};
constexpr milliseconds kMissed{100};
/// A window manager takes about that long for a window's place, at times forgets it at first, and takes
/// several times as long on a busy machine.
constexpr milliseconds kPlaced{150};
constexpr int kAttemptsToPlace = 20;

using Models = std::vector<Reference<com::sun::star::frame::XModel>>;
using Places = std::vector<com::sun::star::awt::Rectangle>;

}  // namespace

Service::Service(OfficeConnection& office, Happenings& happenings, const std::string& profile,
                 milliseconds patience)
    : office_(office), happenings_(happenings), base_(profile + "/links.xml"), patience_(patience) {
}

json Service::Work(const std::string& call, const json& arguments) {
  if (call == "isOpen") return IsFileOpen(arguments);
  if (call == "open") return OpenFile(arguments);
  if (call == "title") return Title(arguments);
  if (call == "setTitle") return SetTitle(arguments);
  if (call == "links") return ReadLinksOf(arguments);
  if (call == "arrange") return Arrange(arguments);
  if (call == "close") return Close(arguments);
  if (call == "quit") return Quit();
  throw Failure("request", "There is no request \"" + call + '"');
}

void Service::TellHappenings() {
  for (const Happening& happening : happenings_.Take()) {
    if (happening.kind == Happening::Kind::kOpenedLate) {
      unwanted_.push_back(*opening_.extract(happening.document).mapped());
      continue;
    }
    if (!documents_.contains(happening.document)) continue;
    if (happening.kind == Happening::Kind::kClosed) {
      TellClosed(documents_.extract(happening.document).mapped());
      isBare_ = documents_.empty();
    } else {
      WriteLine({{"event", "saved"}, {"document", happening.document}});
    }
  }
}

void Service::TellClosed(const OpenDocument& document) const {
  const json line = {{"event", "closed"}, {"document", document.number}};
  if (const auto& last = document.listener->Last()) {
    try {
      json whole = line;
      whole["last"] = {{"links", LinksAnswer(document, base_, last->text)},
                       {"title", TitleAnswer(last->title)}};
      return WriteLine(whole);
    } catch (const std::exception& failure) {
      std::cerr << document.path << ": " << failure.what() << std::endl;
    }
  }
  WriteLine(line);
}

void Service::CloseUnwanted() {
  for (const OpenDocument& document : std::exchange(unwanted_, {})) {
    const auto age = std::chrono::duration_cast<milliseconds>(steady_clock::now() - document.loaded);
    if (age < kLoadedToClosed) Pause(kLoadedToClosed - age);
    try {
      Run([document] { CloseAsItIs(document); });
      isBare_ = documents_.empty();
    } catch (const Failure& failure) {
      // Its user has closed it, or is at work in it by now; or the office hangs or has gone.
      std::cerr << document.path << ": " << failure.what() << std::endl;
    }
  }
}

void Service::CloseStartCenter() {
  if (!std::exchange(isBare_, false)) return;
  try {
    Run([&office = office_] {
      const Reference<com::sun::star::container::XIndexAccess> frames(office.Desktop()->getFrames(),
                                                                      UNO_QUERY_THROW);
      for (sal_Int32 place = frames->getCount() - 1; place >= 0; --place) {
        const Reference<com::sun::star::frame::XFrame> frame(frames->getByIndex(place), UNO_QUERY_THROW);
        if (!Supports(frame->getController(), "com.sun.star.frame.StartModule")) continue;
        Reference<com::sun::star::util::XCloseable>(frame, UNO_QUERY_THROW)->close(false);
      }
    });
  } catch (const Failure&) {
    // The office has ended with its last document, or hangs; the next request tells.
    isBare_ = false;
  }
}

void Service::TellEnd() {
  TellHappenings();
  for (const auto& [number, document] : documents_) WriteLine({{"event", "closed"}, {"document", number}});
  documents_.clear();
}

bool Service::HasDocuments() {
  const auto found = std::make_shared<bool>(false);
  Run([&office = office_, found] {
    const auto components = office.Desktop()->getComponents()->createEnumeration();
    while (components->hasMoreElements() && !*found) {
      *found = Reference<com::sun::star::frame::XModel>(components->nextElement(), UNO_QUERY).is();
    }
  });
  return *found;
}

void Service::EndOffice() {
  try {
    Run([&office = office_] { office.Desktop()->terminate(); });
  } catch (const Failure&) {
    // It says so before it is done.
    if (!office_.IsLost()) throw;
  }
}

json Service::IsFileOpen(const json& arguments) {
  const auto isOpen = std::make_shared<bool>(false);
  Run([&office = office_, path = arguments.at("path").get<std::string>(), isOpen] {
    *isOpen = IsOpen(office, path);
  });
  return {{"open", *isOpen}};
}

json Service::OpenFile(const json& arguments) {
  const std::string path = arguments.at("path");
  const bool readOnly = arguments.at("readOnly");
  CheckFile(path, !readOnly);
  CloseUnwanted();
  const OpenDocument opened = OpenNow(path, readOnly);
  if (!opened.isAsAsked) {
    unwanted_.push_back(opened);
    CloseUnwanted();
    throw Failure("locked", path + " can only be read at present");
  }
  documents_.emplace(opened.number, opened);
  return {{"document", opened.number}, {"kind", opened.kind}};
}

OpenDocument Service::OpenNow(const std::string& path, bool readOnly) {
  const int number = ++lastNumber_;
  const auto opened = std::make_shared<OpenDocument>();
  opening_[number] = opened;
  try {
    Run([&office = office_, &happenings = happenings_, number, path, readOnly, base = base_,
         opened] { *opened = Open(office, number, path, readOnly, base, happenings); },
        [&happenings = happenings_, number] {
          happenings.Push({Happening::Kind::kOpenedLate, number});
        });
  } catch (const Failure& failure) {
    // Only what takes too long may still come.
    if (failure.Code() != "office") opening_.erase(number);
    TellHappenings();
    // It may be what an earlier request has opened late.
    if (failure.Code() != "already-open" || unwanted_.empty()) throw;
    CloseUnwanted();
    return OpenNow(path, readOnly);
  }
  opening_.erase(number);
  return *opened;
}

json Service::Title(const json& arguments) {
  const auto title = std::make_shared<std::optional<std::string>>();
  Run([model = Document(arguments.at("document")).model, title] { *title = CustomTitle(model); });
  return TitleAnswer(*title);
}

json Service::SetTitle(const json& arguments) {
  const OpenDocument& document = Document(arguments.at("document"));
  if (document.isReadOnly) throw Failure("office", document.path + " can only be read");
  Run([model = document.model, title = arguments.at("title").get<std::string>()] {
    SetCustomTitle(model, title);
  });
  return json::object();
}

json Service::ReadLinksOf(const json& arguments) {
  const OpenDocument document = Document(arguments.at("document"));
  const auto saves = std::make_shared<int>(0);
  const auto text = std::make_shared<std::string>();
  Run([&office = office_, document, base = base_, saves, text] {
    *saves = document.listener->Saves();
    *text = TextForLinks(office.Context(), document.model, document.kind, base);
  });
  document.listener->NoteKnown(*saves);
  return LinksAnswer(document, base_, *text);
}

json Service::Arrange(const json& arguments) {
  const auto models = std::make_shared<Models>();
  for (const json& number : arguments.at("documents")) models->push_back(Document(number).model);
  const int style = arguments.at("style");
  if (style != 2 && style != 3) throw Failure("request", "There is no style " + std::to_string(style));
  const json& screen = arguments.at("screen");
  const auto places = std::make_shared<Places>(
      Parts({screen.at("x"), screen.at("y"), screen.at("width"), screen.at("height")},
            static_cast<int>(models->size()), static_cast<Arrangement>(style)));
  const auto areThere = std::make_shared<bool>(false);
  for (int attempt = 0; attempt < kAttemptsToPlace && !*areThere; ++attempt) {
    Run([models, places] {
      for (std::size_t part = 0; part < models->size(); ++part) PlaceWindow((*models)[part], (*places)[part]);
    });
    Pause(kPlaced);
    Run([models, places, areThere] {
      *areThere = std::equal(models->begin(), models->end(), places->begin(), HasPlace);
    });
  }
  return json::object();
}

json Service::Close(const json& arguments) {
  const std::vector<int> numbers = arguments.at("documents");
  for (const int number : numbers) {
    if (number < 1 || number > lastNumber_) throw Failure("no-document", "There never was that document");
  }
  for (const int number : numbers) CloseOne(number);
  return json::object();
}

json Service::Quit() {
  TellHappenings();
  CloseUnwanted();
  std::vector<int> numbers;
  for (const auto& [number, document] : documents_) numbers.push_back(number);
  for (const int number : numbers) CloseOne(number);
  // What an earlier helper left behind belongs to the user.
  if (!HasDocuments()) EndOffice();
  return json::object();
}

const OpenDocument& Service::Document(const json& number) {
  TellHappenings();
  const auto found = documents_.find(number.get<int>());
  if (found == documents_.end()) throw Failure("no-document", "The document is not open any more");
  return found->second;
}

void Service::CloseOne(int number) {
  const auto end = steady_clock::now() + std::min(patience_, kDialog);
  for (TellHappenings(); documents_.contains(number); TellHappenings()) {
    const OpenDocument document = documents_.at(number);
    const auto age = std::chrono::duration_cast<milliseconds>(steady_clock::now() - document.loaded);
    if (age < kLoadedToClosed) {
      Pause(kLoadedToClosed - age);
    } else if (TryToClose(document)) {
      TellHappenings();
      return;
    } else if (steady_clock::now() > end) {
      throw Failure("office", "A dialog is open in " + document.path);
    } else {
      Pause(kBetweenAttemptsToClose);
    }
  }
}

bool Service::TryToClose(const OpenDocument& document) {
  const auto isClosed = std::make_shared<bool>(false);
  try {
    Run([document, isClosed] { *isClosed = StoreAndClose(document); });
  } catch (const Failure& failure) {
    // The user was quicker.
    if (failure.Code() != "no-document") throw;
    *isClosed = true;
  }
  return *isClosed;
}

void Service::Run(std::function<void()> work, std::function<void()> undo) {
  try {
    office_.Run(std::move(work), patience_, std::move(undo));
  } catch (const Failure& failure) {
    // An office that dies takes its documents along before it is missed itself.
    if (failure.Code() == "no-document") Pause(kMissed);
    if (office_.IsLost()) throw office_.Loss();
    throw;
  }
}

void Service::Pause(milliseconds time) {
  const auto end = steady_clock::now() + time;
  for (milliseconds left = time; left.count() > 0;
       left = std::chrono::duration_cast<milliseconds>(end - steady_clock::now())) {
    pollfd waited{happenings_.Descriptor(), POLLIN, 0};
    if (poll(&waited, 1, static_cast<int>(left.count())) > 0) TellHappenings();
  }
}

}  // namespace qb::office
