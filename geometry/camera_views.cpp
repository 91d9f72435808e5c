#include "geometry/camera_views.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "surface/mesh.h"

namespace morvane {
namespace {

/// The edges of the room for a surface in device coordinates.
struct Room {
  float left, right, bottom, top;
};
constexpr Room kWholeRoom = {-0.94F, 0.94F, -0.94F, 0.94F};
// The colour key and its numbers are to the right of it, the file's name above.
constexpr Room kRoomBesideKey = {-0.94F, 0.68F, -0.92F, 0.86F};

/// One axis of the picture: the largest of x + `high` · z and of `low` · z − x, where `low` and
/// `high` are the room per unit of distance on the two sides.
struct Reach {
  float low;
  float high;
  float lowest = -std::numeric_limits<float>::infinity();
  float highest = lowest;

  void add(float x, float z) {
    highest = std::max(highest, x + high * z);
    lowest = std::max(lowest, low * z - x);
  }
  /// The distance of the eye from which all fits.
  [[nodiscard]] float distance() const { return (highest + lowest) / (low + high); }
  /// The pan that centres it, seen from `distance`.
  [[nodiscard]] float pan(float distance) const {
    return (high * distance - highest + lowest - low * distance) / 2.0F;
  }
};

/// Calls `use` with each point as it is drawn, before the camera's rotation.
template <typename Use>
void forEachPoint(const DrawnHeights& heights, const Use& use) {
  const HeightGrid& grid = heights.grid;
  const glm::vec2 half(modelUnits(grid.width()) / 2.0F, modelUnits(grid.height()) / 2.0F);
  const float toModel = heightToModel(heights.zScale);
  for (std::size_t row = 0; row < grid.height(); ++row) {
    const auto values = grid.row(row);
    for (std::size_t column = 0; column < grid.width(); ++column) {
      const float z = drawnHeight(values[column], heights.crop);
      if (std::isnan(z)) continue;
      use({modelUnits(column) - half.x, modelUnits(row) - half.y, z * toModel + heights.lift});
    }
  }
}

}  // namespace

glm::quat rotationOf(ViewDirection direction) {
  // The model is first turned about its z axis, then tilted about the picture's x axis. In an
  // isometric view the elevation of the eye is atan(1 / √2).
  const auto turned = [](float turn, float tilt) {
    return glm::angleAxis(glm::radians(tilt), glm::vec3(1.0F, 0.0F, 0.0F)) *
           glm::angleAxis(glm::radians(turn), glm::vec3(0.0F, 0.0F, 1.0F));
  };
  switch (direction) {
    case ViewDirection::kFront:
      return turned(0.0F, -90.0F);
    case ViewDirection::kSide:
      return turned(-90.0F, -90.0F);
    case ViewDirection::kIsometric:
      return turned(-45.0F, -54.7356F);
    case ViewDirection::kTop:
      break;
  }
  return turned(0.0F, 0.0F);
}

void fit(Camera& camera, const DrawnHeights& heights, int width, int height, bool roomForKey) {
  const Room& room = roomForKey ? kRoomBesideKey : kWholeRoom;
  const float up = std::tan(glm::radians(kFieldOfView) / 2.0F);
  const float across =
      up * static_cast<float>(std::max(width, 1)) / static_cast<float>(std::max(height, 1));
  Reach x{-room.left * across, room.right * across};
  Reach y{-room.bottom * up, room.top * up};
  float nearest = 0.0F;
  forEachPoint(heights, [&, turn = glm::mat3_cast(camera.rotation)](const glm::vec3& point) {
    const glm::vec3 turned = turn * point;
    x.add(turned.x, turned.z);
    y.add(turned.y, turned.z);
    nearest = std::max(nearest, turned.z);
  });
  const float distance = std::max({x.distance(), y.distance(), nearest + 2.0F * kNearPlane});
  if (!std::isfinite(distance)) return;
  camera.distance = camera.eye.z = distance;
  // The step of a zoom from the start to there; see `zoom`.
  camera.zoomStep = 0.01F + 0.03F * distance;
  camera.pan = {x.pan(distance), y.pan(distance)};
}

void CameraUndo::keep(const Camera& before, const Camera& now) {
  const bool same =
      before.rotation == now.rotation && before.pan == now.pan && before.distance == now.distance;
  if (!same) before_ = before;
}

void CameraUndo::exchange(Camera& camera) {
  std::swap(camera, before_);
  releaseTurn(camera);
}

}  // namespace morvane
