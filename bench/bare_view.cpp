// A minimal program that uploads and draws the same buffers: the floor for the time from start to
// picture.
#include <FL/Fl.H>
#include <FL/Fl_Gl_Window.H>
#include <GL/glew.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <glm/gtc/quaternion.hpp>
#include <glm/trigonometric.hpp>
#include <ostream>
#include <vector>

#include "geometry/camera.h"
#include "resfile/res_file.h"
#include "surface/surface_model.h"
#include "tools/usage.h"
#include "ui/gl_mode.h"
#include "ui/window_geometry.h"
#include "view/shader_program.h"
#include "view/shader_sources.h"

namespace {

using namespace morvane;

constexpr const char* kUse =
    "bare_view [FILE [FRAMES]]\n"
    "Without a file it shows an empty window and says \"shown\". With one it uploads and draws\n"
    "the three buffers of the measurement's surface and says \"drawn\", then turns it for so\n"
    "many frames and says what one took.";

class BareView : public Fl_Gl_Window {
 public:
  BareView(const char* path, int frames)
      : Fl_Gl_Window(kFirstLayout.view.w, kFirstLayout.view.h),
        file_(silent_),
        model_(silent_),
        frames_(frames) {
    mode(kGlMode);
    end();
    file_.update(path);
    if (!file_.isValid()) std::exit(1);
    model_.setRaw(file_.grid());
    model_.measure();
  }

 protected:
  void draw() override {
    glewInit();
    const std::size_t floats = cellCount(*model_.shown()) * kFloatsPerCell;
    std::vector<float> positions(floats);
    std::vector<float> normals(floats);
    std::vector<float> colours(floats);
    model_.build({positions, normals, colours, {}});
    glClearColor(0.65F, 0.86F, 1.0F, 0.0F);
    glEnable(GL_DEPTH_TEST);
    const ShaderProgram program(kSurfaceShader);
    glUseProgram(program.name());
    GLuint attribute = 0;
    for (const std::vector<float>* data : {&positions, &colours, &normals}) {
      GLuint buffer = 0;
      glGenBuffers(1, &buffer);
      glBindBuffer(GL_ARRAY_BUFFER, buffer);
      glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(floats * sizeof(float)), data->data(),
                   GL_STATIC_DRAW);
      glEnableVertexAttribArray(attribute);
      glVertexAttribPointer(attribute++, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
    }
    const auto vertices = static_cast<GLsizei>(floats / 3);
    drawTurned(program, 0.0F, vertices);
    std::puts("drawn");
    if (frames_ > 0) timeFrames(program, vertices);
    std::fflush(stdout);
    std::_Exit(0);
  }

 private:
  void drawTurned(const ShaderProgram& program, float degrees, GLsizei vertices) {
    Camera camera;
    camera.rotation = glm::angleAxis(glm::radians(degrees), glm::vec3(0.0F, 1.0F, 0.0F));
    const HeightGrid& grid = *model_.shown();
    const ViewMatrices matrices =
        viewMatrices(camera, w(), h(), grid.width(), grid.height(), model_.autoScale());
    glUniformMatrix4fv(program.uniform("M"), 1, GL_FALSE, &matrices.model[0][0]);
    glUniformMatrix4fv(program.uniform("V"), 1, GL_FALSE, &matrices.view[0][0]);
    glUniformMatrix4fv(program.uniform("P"), 1, GL_FALSE, &matrices.projection[0][0]);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glDrawArrays(GL_TRIANGLES, 0, vertices);
    glFinish();
  }

  void timeFrames(const ShaderProgram& program, GLsizei vertices) {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    for (int frame = 1; frame <= frames_; ++frame) {
      drawTurned(program, static_cast<float>(frame), vertices);
      swap_buffers();
    }
    const std::chrono::duration<double, std::milli> took = Clock::now() - start;
    std::printf("frame %.1f ms\n", took.count() / frames_);
  }

  std::ostream silent_{nullptr};
  resFile file_;
  SurfaceModel model_;
  int frames_;
};

/// Shows an empty window and prints a line when it is on the screen.
int showEmpty() {
  Fl_Window window(kWindowWidth, kWindowHeight);
  window.end();
  window.show();
  window.wait_for_expose();
  Fl::flush();
  std::puts("shown");
  std::fflush(stdout);
  return Fl::run();
}

}  // namespace

int main(int argc, char** argv) {
  if (const auto status = toldUse(argc, argv, argc <= 3, kUse)) return *status;
  if (argc < 2) return showEmpty();
  BareView view(argv[1], argc > 2 ? std::atoi(argv[2]) : 0);
  view.show();
  return Fl::run();
}
