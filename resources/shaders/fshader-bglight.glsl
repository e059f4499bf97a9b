#ifdef GL_ES
precision highp int;
precision highp float;
#endif

// A checkerboard in the ambient light, fixed to the screen.
uniform vec4 AmbientColor;
uniform vec4 BackgroundColor1;
uniform vec4 BackgroundColor2;

const float squareSize = 10.0;

void main()
{
    vec2 square = floor(gl_FragCoord.xy / squareSize);
    bool isFirst = mod(square.x + square.y, 2.0) < 0.5;
    vec4 color = isFirst ? BackgroundColor1 : BackgroundColor2;
    gl_FragColor = vec4(color.rgb * AmbientColor.rgb * AmbientColor.a, color.a);
}
