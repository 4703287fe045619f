#include <com/sun/star/frame/XFrames.hpp>
#include <com/sun/star/util/CloseVetoException.hpp>
#include <com/sun/star/util/XCloseListener.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <cppuhelper/implbase1.hxx>

#include "office/OfficeTest.h"

namespace qb::office {
namespace {

using nlohmann::json;

/// Calls a close off.
class Veto : public cppu::WeakImplHelper1<com::sun::star::util::XCloseListener> {
 public:
  void SAL_CALL queryClosing(const com::sun::star::lang::EventObject& /*source*/,
                             sal_Bool /*owns*/) override {
    throw com::sun::star::util::CloseVetoException();
  }
  void SAL_CALL notifyClosing(const com::sun::star::lang::EventObject& /*source*/) override {}
  void SAL_CALL disposing(const com::sun::star::lang::EventObject& /*source*/) override {}
};

class CloseTest : public OfficeTest {
 protected:
  static int WaitForClosed() { return Helper().WaitForEvent("closed").value("document", 0); }
};

TEST_F(CloseTest, storesWhatIsModifiedAndTellsItBeforeTheAnswer) {
  const std::string path = Sample("wartung/wartung.doc");
  const std::string other = Sample("sicherheit/sicherheit.doc");
  const int first = Open(path);
  const int second = Open(other);
  User().Write(path, "Kept");
  Helper().Waiting();
  const int request = Helper().Send("close", {{"documents", {second, first}}});
  const auto line = [](const json& waited) {
    return Helper().WaitFor([&](const json& found) { return found == waited; });
  };
  line({{"event", "closed"}, {"document", second}});
  line({{"event", "saved"}, {"document", first}});
  const json closed = Helper().WaitForEvent("closed");
  EXPECT_EQ(closed.value("document", 0), first);
  // Nobody had the time to ask what was saved.
  EXPECT_EQ(closed["last"], json({{"title", {{"title", nullptr}}}, {"links", {{"links", json::array()}}}}));
  line({{"id", request}, {"result", json::object()}});
  Open(path);
  EXPECT_NE(User().Text(path).find("Kept"), std::string::npos);
}

TEST_F(CloseTest, storesNothingThatWasOnlyRead) {
  for (const char* name : {"wartung/wartung.doc", "schulung/schulung.ppt", "glossar/glossar.htm"}) {
    const int document = Open(Sample(name));
    Helper().Ask("title", {{"document", document}});
    Helper().Ask("links", {{"document", document}});
    const int request = Helper().Send("close", {{"documents", {document}}});
    // Without a word about a save, or about what it left.
    EXPECT_EQ(Helper().WaitFor([](const json&) { return true; }),
              json({{"event", "closed"}, {"document", document}}))
        << name;
    EXPECT_EQ(Helper().WaitForAnswer(request), json::object());
  }
}

TEST_F(CloseTest, saysNothingAgainThatWasToldAfterACloseThatWasCalledOff) {
  const std::string path = Sample("wartung/wartung.doc");
  const int document = Open(path);
  User().Write(path, "More");
  User().Command(path, ".uno:Save");
  User().Do([&path] {
    const Reference<com::sun::star::util::XCloseable> model(User().Model(path), UNO_QUERY_THROW);
    const Reference<com::sun::star::util::XCloseListener> veto(new Veto());
    model->addCloseListener(veto);
    EXPECT_THROW(model->close(false), com::sun::star::util::CloseVetoException);
    model->removeCloseListener(veto);
  });
  EXPECT_TRUE(Helper().Ask("links", {{"document", document}}).contains("links"));
  Close(document);
  EXPECT_EQ(Helper().WaitForEvent("closed"), json({{"event", "closed"}, {"document", document}}));
}

TEST_F(CloseTest, tellsThatTheUserHasClosedTheWindow) {
  const std::string path = Sample("wartung/wartung.doc");
  const std::string other = Sample("sicherheit/sicherheit.doc");
  const int document = Open(path);
  Open(other);
  Press(path, "alt+F4");
  EXPECT_EQ(WaitForClosed(), document);
  EXPECT_FALSE(User().IsOpen(path));
  EXPECT_TRUE(User().IsOpen(other));
  EXPECT_EQ(Helper().Ask("title", {{"document", document}}).value("code", ""), "no-document");
}

TEST_F(CloseTest, tellsEachWayOfTheOfficeOnce) {
  const std::string path = Sample("wartung/wartung.doc");
  int document = Open(path);
  User().Command(path, ".uno:CloseDoc");
  EXPECT_EQ(WaitForClosed(), document);
  document = Open(path);
  User().Do([&path] {
    const Reference<com::sun::star::util::XCloseable> frame(
        User().Model(path)->getCurrentController()->getFrame(), UNO_QUERY_THROW);
    frame->close(true);
  });
  EXPECT_EQ(WaitForClosed(), document);
  EXPECT_EQ(Helper().Ask("close", {{"documents", {document}}}), json::object());
  EXPECT_TRUE(Helper().Waiting().empty());
}

TEST_F(CloseTest, leavesNoStartCenterBehindTheLastDocument) {
  const auto windows = [] {
    int count = 0;
    User().Do([&count] { count = User().Desktop()->getFrames()->getCount(); });
    return count;
  };
  const std::string path = Sample("wartung/wartung.doc");
  Open(path);
  User().Command(path, ".uno:CloseDoc");
  WaitForClosed();
  // Requests are worked one after the other, so this one comes after what the closing has led to.
  EXPECT_EQ(Helper().Ask("close", {{"documents", json::array()}}), json::object());
  EXPECT_EQ(windows(), 0);
}

TEST_F(CloseTest, waitsForADialogOfTheUser) {
  const std::string path = Sample("wartung/wartung.doc");
  const int document = Open(path);
  Press(path, "ctrl+shift+s");
  ASSERT_TRUE(PressIn("Save$", "Shift_L"));
  const int request = Helper().Send("close", {{"documents", {document}}});
  ASSERT_TRUE(PressIn("Save$", "Escape"));
  EXPECT_EQ(Helper().WaitForAnswer(request), json::object());
  EXPECT_FALSE(User().IsOpen(path));
}

TEST_F(CloseTest, leavesADocumentOpenWhoseDialogIsNotAnswered) {
  const std::string path = Sample("wartung/wartung.doc");
  const int document = Open(path);
  Press(path, "ctrl+shift+s");
  ASSERT_TRUE(PressIn("Save$", "Shift_L"));
  EXPECT_EQ(Helper().Ask("close", {{"documents", {document}}}).value("code", ""), "office");
  EXPECT_TRUE(User().IsOpen(path));
  ASSERT_TRUE(PressIn("Save$", "Escape"));
  EXPECT_EQ(Helper().Ask("close", {{"documents", {document}}}), json::object());
  EXPECT_FALSE(User().IsOpen(path));
}

TEST_F(CloseTest, refusesADocumentThatNeverWas) {
  EXPECT_EQ(Helper().Ask("close", {{"documents", {4711}}}).value("code", ""), "no-document");
  EXPECT_EQ(Helper().Ask("title", {{"document", 4711}}).value("code", ""), "no-document");
}

}  // namespace
}  // namespace qb::office
