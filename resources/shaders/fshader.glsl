// The colour texture as it is.
uniform sampler2D texture;

varying highp vec2 v_texcoord;

void main()
{
    gl_FragColor = texture2D(texture, v_texcoord);
}
