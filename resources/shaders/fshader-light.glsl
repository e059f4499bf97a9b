#ifdef GL_ES
precision highp int;
precision highp float;
#endif

// A sprite in the light from afar.
uniform sampler2D texture;
uniform sampler2D normals;
uniform sampler2D selection;
uniform vec2 TexelSize;
uniform float displayScaleFacor;
uniform int displayMode;

uniform vec4 AmbientColor;
uniform vec4 LightColor;
uniform vec3 LightDirection;
uniform float Brightness;

varying vec2 v_texcoord;

const int textureMode = 1;
const int litSurfaceMode = 2;
const int normalMapMode = 4;

vec4 lit(vec4 surface, vec3 normal)
{
    vec3 ambient = AmbientColor.rgb * AmbientColor.a;
    vec3 light = LightColor.rgb * LightColor.a * max(dot(normal, LightDirection), 0.0);
    return vec4(surface.rgb * (ambient + light * Brightness), surface.a);
}

// There the texel has its own value, however the texture is filtered. What lies on a border belongs
// to the texel after it, also when rounding puts it just before.
vec2 middleOfTexel(vec2 place)
{
    return (floor(place / TexelSize + 0.004) + 0.5) * TexelSize;
}

bool isSelected(vec2 place)
{
    return texture2D(selection, middleOfTexel(place)).a > 0.5;
}

bool isUnselected(vec2 place)
{
    return texture2D(selection, middleOfTexel(place)).a < 0.5;
}

bool isSelectionOutline()
{
    if (!isSelected(v_texcoord))
        return false;
    vec2 reach = 1.0 * TexelSize / displayScaleFacor;
    vec2 before = v_texcoord - reach;
    vec2 after = v_texcoord + reach;
    if (before.x < 0.0 || before.y < 0.0 || after.x >= 1.0 || after.y >= 1.0)
        return true;
    return isUnselected(vec2(before.x, v_texcoord.y)) || isUnselected(vec2(after.x, v_texcoord.y)) ||
           isUnselected(vec2(v_texcoord.x, before.y)) || isUnselected(vec2(v_texcoord.x, after.y));
}

void main()
{
    vec4 color = texture2D(texture, v_texcoord);
    vec4 premultiplied = vec4(color.rgb * color.a, color.a);
    vec4 normalColor = texture2D(normals, v_texcoord);
    vec3 normal = normalize(2.0 * normalColor.rgb - 1.0);

    if (displayMode == textureMode)
        gl_FragColor = premultiplied;
    else if (displayMode == litSurfaceMode)
        gl_FragColor = lit(vec4(vec3(0.5 * color.a), color.a), normal);
    else if (displayMode == normalMapMode)
        gl_FragColor = normalColor;
    else
        gl_FragColor = lit(premultiplied, normal);

    if (isSelectionOutline()) {
        vec2 pixel = floor(gl_FragCoord.xy);
        gl_FragColor = vec4(vec3(mod(pixel.x + pixel.y, 2.0)), 1.0);
    }
}
