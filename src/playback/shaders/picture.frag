#version 440

layout(location = 0) in vec2 place;
layout(location = 0) out vec4 color;

layout(std140, binding = 0) uniform Values {
  mat4 qt_Matrix;
  mat4 toRGB;
  float opacity;
  float interleaved;  // U and V lie in one plane
};
layout(binding = 1) uniform sampler2D lumaPlane;
layout(binding = 2) uniform sampler2D uPlane;
layout(binding = 3) uniform sampler2D vPlane;

void main() {
  vec2 v = texture(vPlane, place).rg;
  vec4 yuv =
      vec4(texture(lumaPlane, place).r, texture(uPlane, place).r, mix(v.r, v.g, interleaved), 1.0);
  color = vec4(clamp((toRGB * yuv).rgb, 0.0, 1.0), 1.0) * opacity;
}
