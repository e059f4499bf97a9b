// The quad of the background. No variant uses it: vshader.glsl does the same for all of them.
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
