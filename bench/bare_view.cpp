// A bare program that uploads and draws the three buffers of a measurement's surface once, says so
// and ends: what the road from start to picture costs without a program around it.
#include <FL/Fl.H>
#include <FL/Fl_Gl_Window.H>
#include <GL/glew.h>

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <ostream>
#include <vector>

#include "resfile/res_file.h"
#include "surface/surface_model.h"
#include "view/camera.h"
#include "view/gl_mode.h"
#include "view/shader_program.h"
#include "view/shader_sources.h"

namespace {

using namespace morvane;

class BareView : public Fl_Gl_Window {
 public:
  explicit BareView(const char* path) : Fl_Gl_Window(1130, 775), file_(silent_), model_(silent_) {
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
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    const ShaderProgram program(kSurfaceShader);
    glUseProgram(program.name());
    const ViewMatrices matrices = viewMatrices({}, w(), h(), model_.shown()->width(),
                                               model_.shown()->height(), model_.autoScale());
    glUniformMatrix4fv(program.uniform("M"), 1, GL_FALSE, &matrices.model[0][0]);
    glUniformMatrix4fv(program.uniform("V"), 1, GL_FALSE, &matrices.view[0][0]);
    glUniformMatrix4fv(program.uniform("P"), 1, GL_FALSE, &matrices.projection[0][0]);
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
    glDrawArrays(GL_TRIANGLES, 0, static_cast<GLsizei>(floats / 3));
    glFinish();
    std::puts("drawn");
    std::_Exit(0);
  }

 private:
  std::ostream silent_{nullptr};
  resFile file_;
  SurfaceModel model_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  BareView view(argv[1]);
  view.show();
  return Fl::run();
}
