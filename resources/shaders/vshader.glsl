// The quad of one sprite, or of the whole viewport, in pixels of the scene.
attribute vec3 a_position;
attribute vec2 a_texcoord;

uniform mat4 projection;

varying vec2 v_texcoord;
varying vec3 v_position;

void main()
{
    v_texcoord = a_texcoord;
    v_position = a_position;
    gl_Position = projection * vec4(a_position, 1.0);
}
