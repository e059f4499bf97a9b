#ifdef GL_ES
precision highp int;
precision highp float;
#endif

// A sprite in the light of a lamp that hangs over the scene.
uniform sampler2D texture;
uniform sampler2D normals;
uniform sampler2D selection;
uniform vec2 TexelSize;
uniform float displayScaleFacor;
uniform int displayMode;
uniform bool invertedYAxis;
uniform int msecsElapsed;
uniform float pixelRatio;
uniform float textureOverlayFactor;

uniform vec4 AmbientColor;
uniform vec4 LightColor;
uniform vec3 LightPos;
uniform float Brightness;

varying vec2 v_texcoord;
varying vec3 v_position;

const int textureMode = 1;
const int litSurfaceMode = 2;
const int normalMapMode = 4;
const vec4 flatNormal = vec4(0.5, 0.5, 1.0, 1.0);
const vec4 white = vec4(1.0);
// Below the least alpha that a sprite stores: a filtered texture may be a trace away from it.
const float noAlpha = 0.5 / 255.0;

vec4 lit(vec4 surface, vec3 normal)
{
    vec3 towardsLight = LightPos - v_position;
    float distanceToLight = length(towardsLight); // nothing fades with it
    vec3 ambient = AmbientColor.rgb * AmbientColor.a;
    // A lamp in the pixel's very centre shines from nowhere.
    vec3 direction = distanceToLight > 0.0 ? normalize(towardsLight) : vec3(0.0);
    float cosine = max(dot(normal, direction), 0.0);
    vec3 light = LightColor.rgb * LightColor.a * cosine;
    return vec4(surface.rgb * (ambient + light * Brightness), surface.a);
}

// Half a screen pixel. Where the borders of sprite pixels do not fall between device pixels, the
// last one inside may lie up to a whole device pixel away: without this the lines would have gaps.
vec2 reachOfOutlines()
{
    vec2 screenPixel = TexelSize / displayScaleFacor;
    return max(0.5 * screenPixel, screenPixel / pixelRatio);
}

// There the texel has its own value, however the texture is filtered. What lies on a border belongs
// to the texel after it, also when rounding puts it just before: by much less than a device pixel.
vec2 middleOfTexel(vec2 place)
{
    float rounding = min(0.004, 0.2 / (displayScaleFacor * pixelRatio));
    return (floor(place / TexelSize + rounding) + 0.5) * TexelSize;
}

bool isTransparent(vec2 place)
{
    return texture2D(texture, middleOfTexel(place)).a < noAlpha;
}

bool isSpriteOutline()
{
    vec2 reach = reachOfOutlines();
    return isTransparent(v_texcoord - vec2(reach.x, 0.0)) ||
           isTransparent(v_texcoord + vec2(reach.x, 0.0)) ||
           isTransparent(v_texcoord - vec2(0.0, reach.y)) ||
           isTransparent(v_texcoord + vec2(0.0, reach.y));
}

vec4 shownNormal(vec4 premultiplied, vec4 normalColor)
{
    if (premultiplied.a < noAlpha)
        return flatNormal;
    if (isSpriteOutline())
        return white;
    float luminance = dot(premultiplied.rgb, vec3(0.2126, 0.7152, 0.0722));
    vec4 overlay = vec4(normalColor.rgb * (luminance * 0.9 + 0.3), premultiplied.a);
    return textureOverlayFactor * overlay + (1.0 - textureOverlayFactor) * normalColor;
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
    vec2 reach = reachOfOutlines();
    vec2 before = v_texcoord - reach;
    vec2 after = v_texcoord + reach;
    if (before.x < 0.0 || before.y < 0.0 || after.x >= 1.0 || after.y >= 1.0)
        return true;
    return isUnselected(vec2(before.x, v_texcoord.y)) || isUnselected(vec2(after.x, v_texcoord.y)) ||
           isUnselected(vec2(v_texcoord.x, before.y)) || isUnselected(vec2(v_texcoord.x, after.y));
}

vec4 marchingAnts()
{
    float antLength = 4.0 * pixelRatio;
    vec2 pixel = floor(gl_FragCoord.xy);
    float step = float(msecsElapsed / 75) * pixelRatio;
    float place = mod(pixel.y - pixel.x + step, 2.0 * antLength);
    return vec4(vec3(place >= antLength ? 0.0 : 1.0), 1.0);
}

void main()
{
    vec4 color = texture2D(texture, v_texcoord);
    vec4 premultiplied = vec4(color.rgb * color.a, color.a);
    vec4 normalColor = texture2D(normals, v_texcoord);
    vec3 normal = normalize(2.0 * normalColor.rgb - 1.0);
    if (!invertedYAxis)
        normal.y = -normal.y;

    if (displayMode == textureMode)
        gl_FragColor = premultiplied;
    else if (displayMode == litSurfaceMode)
        gl_FragColor = lit(vec4(vec3(0.5 * color.a), color.a), normal);
    else if (displayMode == normalMapMode)
        gl_FragColor = shownNormal(premultiplied, normalColor);
    else
        gl_FragColor = lit(premultiplied, normal);

    if (isSelectionOutline())
        gl_FragColor = marchingAnts();
}
