#include "dxf/dxf_reader.h"
#include "fuzz/mutators/dxf_mutator.h"
#include "fuzz/target.h"

namespace {

/// Reads all tags, each value in the forms in which records ask for it.
void Run(std::string_view input) {
  LineStream stream(input);
  DXF_Names names;
  dxfReader reader(stream, names);
  reader.skipComments = input.size() % 2 == 0;
  std::int32_t code = 0;
  while (reader.nextGroup(code)) {
    fuzz::Touch(reader.textValue);
    fuzz::Touch(reader.text());
    fuzz::Touch(reader.name());
    const std::uint32_t handle = reader.handleFromText();
    fuzz::Touch(&handle, sizeof handle);
    fuzz::Check(reader.reservable(reader.intValue, 2) <= input.size(), "more room than lines");
  }
}

const fuzz::Target target("dxf_tags", Run, fuzz::MutateDxf);

}  // namespace
