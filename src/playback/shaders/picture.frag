#version 440

layout(location = 0) in vec2 place;
layout(location = 0) out vec4 color;

layout(std140, binding = 0) uniform Values {
  mat4 qt_Matrix;
  mat4 toRGB;
  float opacity;
  float interleaved;  // U and V lie in one plane
  float toneSteps;    // of red, green and blue; 0 when the tones are right as they are
};
layout(binding = 1) uniform sampler2D lumaPlane;
layout(binding = 2) uniform sampler2D uPlane;
layout(binding = 3) uniform sampler2D vPlane;
layout(binding = 4) uniform sampler2D tones;

// A table of three dimensions in a texture of two: squares of red and green, side by side for blue.
vec3 mapped(vec3 rgb) {
  vec3 step = rgb * (toneSteps - 1.0);
  float below = min(floor(step.b), toneSteps - 2.0);
  vec2 size = vec2(toneSteps * toneSteps, toneSteps);
  vec2 lower = (vec2(step.r + below * toneSteps, step.g) + 0.5) / size;
  vec2 upper = lower + vec2(1.0 / toneSteps, 0.0);
  return mix(texture(tones, lower).rgb, texture(tones, upper).rgb, step.b - below);
}

void main() {
  vec2 v = texture(vPlane, place).rg;
  vec4 yuv =
      vec4(texture(lumaPlane, place).r, texture(uPlane, place).r, mix(v.r, v.g, interleaved), 1.0);
  vec3 rgb = clamp((toRGB * yuv).rgb, 0.0, 1.0);
  if (toneSteps > 0.0) rgb = mapped(rgb);
  color = vec4(rgb, 1.0) * opacity;
}
