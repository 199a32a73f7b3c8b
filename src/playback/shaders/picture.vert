#version 440

layout(location = 0) in vec4 position;
layout(location = 1) in vec2 coordinate;
layout(location = 0) out vec2 place;

layout(std140, binding = 0) uniform Values {
  mat4 qt_Matrix;
  mat4 toRGB;
  float opacity;
  float interleaved;  // U and V lie in one plane
  float toneSteps;    // of red, green and blue; 0 when the tones are right as they are
};

void main() {
  place = coordinate;
  gl_Position = qt_Matrix * position;
}
