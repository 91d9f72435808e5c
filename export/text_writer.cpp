#include "export/text_writer.h"

#include "base/number_text.h"

namespace morvane {

void TextWriter::number(double value) { appendExact(pending_, value); }
void TextWriter::number(float value) { appendExact(pending_, value); }

void TextWriter::flush() {
  sink_.write(pending_.data(), pending_.size());
  pending_.clear();
}

}  // namespace morvane
