#include <array>
#include <cstdio>
#include <sstream>

#include "office/OfficeTest.h"

namespace qb::office {
namespace {

/// A window's place on the screen, without what the window manager draws around it.
struct Area {
  int x = -1;
  int y = -1;
  int width = -1;
  int height = -1;
};

std::ostream& operator<<(std::ostream& stream, const Area& area) {
  return stream << area.x << ',' << area.y << ' ' << area.width << 'x' << area.height;
}

/// As the X server sees the window whose name begins so.
Area AreaOf(const std::string& name) {
  const std::string command = "xwininfo -id $(xdotool search --onlyvisible --name '^" + name +
                              "' | head -1) | sed -n 's/.*\\(upper-left .\\|Width\\|Height\\): *//p'";
  FILE* output = popen(command.c_str(), "r");
  std::array<char, 1000> buffer{};
  const std::size_t count = fread(buffer.data(), 1, buffer.size(), output);
  pclose(output);
  Area area;
  int ignored = 0;
  std::istringstream(std::string(buffer.data(), count)) >> area.x >> area.y >> ignored >> ignored >>
      area.width >> area.height;
  return area;
}

class PlaceTest : public OfficeTest {
 protected:
  /// The borders that a window manager draws are no wider than that.
  static constexpr int kBorder = 40;

  static bool Fills(const Area& area, const Area& wanted) {
    const int right = wanted.x + wanted.width;
    const int bottom = wanted.y + wanted.height;
    return area.x >= wanted.x && area.x < wanted.x + kBorder && area.y >= wanted.y &&
           area.y < wanted.y + kBorder && area.x + area.width <= right &&
           area.x + area.width > right - kBorder && area.y + area.height <= bottom &&
           area.y + area.height > bottom - kBorder;
  }

  /// The window manager may take its time.
  static void ExpectFills(const std::string& name, const Area& wanted) {
    Area area;
    EXPECT_TRUE(WaitUntil([&] { return Fills(area = AreaOf(name), wanted); }))
        << name << " at " << area << ", wanted " << wanted;
  }

  void Arrange(int style, const std::vector<int>& documents) {
    const nlohmann::json screen = {{"x", 0}, {"y", 0}, {"width", 1280}, {"height", 900}};
    EXPECT_EQ(Helper().Ask("arrange", {{"documents", documents}, {"style", style}, {"screen", screen}}),
              nlohmann::json::object());
  }
};

TEST_F(PlaceTest, putsTheSourceOnTheLeftOrAbove) {
  const int source = Open(Sample("wartung/wartung.doc", "source.doc"), true);
  const int target = Open(Sample("wartung/wartung.doc", "target.doc"));
  Arrange(3, {source, target});
  ExpectFills("source.doc", {0, 0, 640, 900});
  ExpectFills("target.doc", {640, 0, 640, 900});
  Arrange(2, {source, target});
  ExpectFills("source.doc", {0, 0, 1280, 450});
  ExpectFills("target.doc", {0, 450, 1280, 450});
}

TEST_F(PlaceTest, refusesAStyleOrADocumentThatIsNot) {
  const nlohmann::json screen = {{"x", 0}, {"y", 0}, {"width", 1280}, {"height", 900}};
  EXPECT_EQ(
      Helper().Ask("arrange", {{"documents", {4711}}, {"style", 3}, {"screen", screen}}).value("code", ""),
      "no-document");
  EXPECT_EQ(Helper()
                .Ask("arrange", {{"documents", nlohmann::json::array()}, {"style", 4}, {"screen", screen}})
                .value("code", ""),
            "request");
}

TEST_F(PlaceTest, refusesADocumentThatIsLosingItsWindow) {
  const std::string path = Sample("wartung/wartung.doc");
  const int document = Open(path);
  Reference<com::sun::star::frame::XController> controller;
  User().Do([&] {
    controller = User().Model(path)->getCurrentController();
    User().Model(path)->disconnectController(controller);
  });
  const nlohmann::json screen = {{"x", 0}, {"y", 0}, {"width", 1280}, {"height", 900}};
  const auto error = Helper().Ask("arrange", {{"documents", {document}}, {"style", 3}, {"screen", screen}});
  EXPECT_EQ(error.value("code", ""), "office") << error;
  User().Do([&] {
    User().Model(path)->connectController(controller);
    User().Model(path)->setCurrentController(controller);
  });
  Arrange(3, {document});
}

}  // namespace
}  // namespace qb::office
