// Paints a scene: one instanced mesh for each part and pass (what is opaque, the edges, what one
// can look through). The light is that of the host's pictures. Nothing is painted unless asked for.
import {
  BufferAttribute, Camera, DataTexture, DoubleSide, FloatType, FrontSide, InstancedBufferAttribute,
  InstancedBufferGeometry, LineSegments, Matrix3, Matrix4, Mesh, NearestFilter, RGBAFormat,
  Scene as Stage, ShaderMaterial, WebGLRenderer,
} from '/three/build/three.module.js';
import { Moving, marking } from './moving.js';
import { onScreen } from './turn.js';

const looksInARow = 256;
const slow = 70;  // milliseconds for a picture
const mostSorted = 1000;   // parts that one can look through, each painted by itself
const mostMerged = 1e6;    // points of all parts together

const vertexShader = `
attribute vec4 row0, row1, row2;  // from the part to the model in mm
attribute vec4 mark;              // look, whether it covers those of surfaces, state, surface
#ifdef EDGES
const vec2 surface = vec2(-1.0, 0.0);
#else
attribute vec2 surface;           // its own look or -1, its id
#endif
uniform mat4 toClip;
uniform mat3 toView;
uniform highp sampler2D looks;
varying vec3 outward;
flat varying vec4 colour, light;
flat varying vec3 gloss;
flat varying float state;

vec4 lookAt(float number, int column) {
  int n = int(number + 0.5);
  return texelFetch(looks, ivec2(3 * (n % ${looksInARow}) + column, n / ${looksInARow}), 0);
}

void main() {
  float look = mark.y > 0.5 || surface.x < 0.0 ? mark.x : surface.x;
  colour = lookAt(look, 0);
  light = lookAt(look, 1);
  gloss = lookAt(look, 2).rgb;
  state = mark.w < 0.0 || abs(mark.w - surface.y) < 0.5 ? mark.z : 0.0;
  vec4 point = vec4(position, 1.0);
  vec3 model = vec3(dot(row0, point), dot(row1, point), dot(row2, point));
#ifdef EDGES
  bool painted = colour.a > 0.02;
#else
  outward = toView * vec3(dot(row0.xyz, normal), dot(row1.xyz, normal), dot(row2.xyz, normal));
#ifdef CLEAR
  bool painted = colour.a < 0.999 && colour.a > 0.02;
#else
  bool painted = colour.a >= 0.999;
#endif
#endif
  gl_Position = painted ? toClip * vec4(model, 1.0) : vec4(2.0, 2.0, 2.0, 1.0);
}`;

// The same as in the host's pictures: from the upper left, and what is turned away keeps some.
const fragmentShader = `
varying vec3 outward;
flat varying vec4 colour, light;
flat varying vec3 gloss;
flat varying float state;
${marking}

void main() {
  float sum = max(light.x + light.y, 1e-6);
  float brightness = min(1.0, sum / 1.2);
#ifdef EDGES
  vec3 ink = 0.3 * brightness * colour.rgb;
  if (state > 0.5) ink = state > 1.5 ? vec3(0.75, 0.4, 0.0) : vec3(0.0, 0.45, 0.12);
  else if (colour.a < 0.999) ink = mix(ink, vec3(0.75), 0.4);
  gl_FragColor = vec4(ink, 1.0);
#else
  vec3 n = normalize(outward);
  bool inside = !gl_FrontFacing;
  if (inside) n = -n;
  vec3 from = normalize(vec3(-0.45, 0.75, 0.65));
  float even = light.x / sum;
  float factor = brightness * (inside ? 0.85 : 1.0) *
      (0.9 * even + 1.12 * (1.0 - even) * (0.5 + 0.5 * dot(n, from)));
  vec3 halfway = normalize(from + vec3(0.0, 0.0, 1.0));
  float shine = pow(max(0.0, dot(n, halfway)), 8.0 + 40.0 * light.w);
  vec3 seen = factor * colour.rgb + (inside ? 0.0 : 0.35 * light.z * shine) * gloss;
  gl_FragColor = vec4(marked(seen, state), colour.a);
#endif
}`;

function materialOf(defines, uniforms, more = {}) {
  return new ShaderMaterial({ vertexShader, fragmentShader, defines, uniforms, ...more });
}

export class Painter {
  constructor(canvas) {
    this.byProcessor = isByProcessor();
    const context = canvas.getContext('webgl2', { alpha: true, antialias: !this.byProcessor });
    if (!context) throw new Error('no WebGL 2');
    this.gl = context;
    this.renderer = new WebGLRenderer({ canvas, context, alpha: true });
    this.renderer.setClearColor(0, 0);
    this.renderer.sortObjects = false;
    this.stage = new Stage();
    this.stage.autoUpdate = false;
    this.camera = new Camera();
    this.uniforms = { toClip: { value: new Matrix4() }, toView: { value: new Matrix3() },
      looks: { value: null } };
    const offset = { polygonOffset: true, polygonOffsetFactor: 1, polygonOffsetUnits: 1 };
    this.solid = materialOf({}, this.uniforms, { side: FrontSide, ...offset });
    // One looks into a part whose surfaces differ.
    this.mixed = materialOf({}, this.uniforms, { side: DoubleSide, ...offset });
    this.edges = materialOf({ EDGES: 1 }, this.uniforms);
    this.clear = materialOf({ CLEAR: 1 }, this.uniforms,
      { side: DoubleSide, transparent: true, depthWrite: false });
    this.scene = null;
    this.marks = [];  // for each occurrence the attributes that hold its mark, and its place there
    this.states = new Map();
    this.moving = null;  // the geometry of coarser pictures, where a processor paints
    this.frames = 0;
    this.coarse = 0;  // 0 all; 1 without edges; 2 also with a quarter of the pixels
    this.enough = 0;  // how coarse pictures were when the model was turned last
    this.cost = 0;    // milliseconds of the last picture that was waited for
  }

  // What is to be painted from now on.
  show(scene) {
    this.drop();
    this.scene = scene;
    this.edgeObjects = [];
    this.clearObjects = [];  // each of one occurrence
    this.enough = 0;
    if (!scene.count) return;
    this.uniforms.looks.value = textureOf(scene.looks);
    this.marks = Array.from({ length: scene.count }, () => []);
    const byPart = scene.parts.map(() => []);
    for (let i = 0; i < scene.count; ++i) byPart[scene.partOf[i]].push(i);
    const layers = [[], [], []];
    this.sorts = scene.partOf.filter((_, i) => isClearAt(scene, i)).length <= mostSorted;
    byPart.forEach((occurrences, part) => this.addPart(scene.parts[part], occurrences, layers));
    for (const layer of layers) if (layer.length) this.stage.add(...layer);
    this.edgeObjects = layers[1];
    if (this.sorts) this.clearObjects = layers[2];
  }

  drop() {
    for (const object of [...this.stage.children]) {
      this.stage.remove(object);
      object.geometry.dispose();
    }
    if (this.uniforms.looks.value) this.uniforms.looks.value.dispose();
    this.uniforms.looks.value = null;
    this.marks = [];
    this.states = new Map();
    if (this.moving) this.moving.dispose();
    this.moving = null;
  }

  addPart(part, occurrences, layers) {
    const { scene } = this, { mesh } = part;
    const own = part.surfaces.map(([, look]) => scene.looks[look][3]);
    const looks = occurrences.map(i => scene.looks[scene.lookOf[i]][3]);
    const anyOwn = occurrences.some(i => !scene.covered[i]);
    const alphas = anyOwn ? looks.concat(own) : looks;
    const isSolid = alphas.some(each => each >= 0.999), isClear = alphas.some(each => each < 0.999);
    const all = { rows: this.rowsOf(occurrences), count: occurrences.length };
    const add = (layer, Kind, attributes, material, index, { rows, count } = all) => {
      const geometry = new InstancedBufferGeometry();
      for (const [name, attribute] of Object.entries({ ...attributes, ...rows })) {
        geometry.setAttribute(name, attribute);
      }
      if (index) geometry.setIndex(index);
      geometry.maxInstancedCount = count;
      const object = new Kind(geometry, material);
      object.frustumCulled = false;
      layers[layer].push(object);
      return object;
    };
    const faces = { position: new BufferAttribute(mesh.points, 3),
      normal: new BufferAttribute(mesh.normals, 3), surface: surfacesOf(part) };
    const triangles = new BufferAttribute(mesh.triangles, 1);
    if (isSolid) add(0, Mesh, faces, isClear ? this.mixed : this.solid, triangles);
    if (mesh.edges.length) {
      add(1, LineSegments, { position: new BufferAttribute(mesh.edges, 3) }, this.edges);
    }
    if (isClear && !this.sorts) add(2, Mesh, faces, this.clear, triangles);
    for (const i of isClear && this.sorts ? occurrences : []) {
      if (!isClearAt(scene, i)) continue;
      const one = { rows: this.rowsOf([i]), count: 1 };
      add(2, Mesh, faces, this.clear, triangles, one).userData.occurrence = i;
    }
  }

  // Where the occurrences are, and their marks.
  rowsOf(occurrences) {
    const { scene } = this, p = scene.placements;
    const rows = [0, 1, 2].map(() => new Float32Array(4 * occurrences.length));
    const mark = new InstancedBufferAttribute(new Float32Array(4 * occurrences.length), 4);
    occurrences.forEach((i, at) => {
      for (let k = 0; k < 3; ++k) {
        for (let j = 0; j < 4; ++j) rows[k][4 * at + j] = p[12 * i + 3 * j + k];
      }
      mark.array.set([scene.lookOf[i], scene.covered[i], 0, -1], 4 * at);
      this.marks[i].push([mark, at]);
    });
    const [row0, row1, row2] = rows.map(row => new InstancedBufferAttribute(row, 4));
    return { row0, row1, row2, mark };
  }

  // How occurrences are marked: a map from number to [state, surface]; 1 selected, 2 under the
  // pointer; surface -1: the whole.
  mark(states) {
    this.marks.forEach((attributes, i) => {
      const [state, surface] = states.get(i) || [0, -1];
      for (const [attribute, at] of attributes) {
        const place = 4 * at + 2;
        if (attribute.array[place] === state && attribute.array[place + 1] === surface) continue;
        attribute.array[place] = state;
        attribute.array[place + 1] = surface;
        attribute.needsUpdate = true;
      }
    });
    if (this.moving) this.moving.mark(states, this.states);
    this.states = states;
  }

  // The canvas in pixels of the page.
  resize(width, height, ratio) {
    this.size = { width, height, ratio };
    this.applySize();
  }

  applySize() {
    const { width, height, ratio } = this.size;
    this.renderer.setPixelRatio(this.coarse > 1 ? ratio / 2 : ratio);
    this.renderer.setSize(width, height, false);
  }

  setCoarse(level) {
    if (level === this.coarse) return;
    this.cost = 0;
    const sizeChanges = (level > 1) !== (this.coarse > 1);
    this.coarse = level;
    if (sizeChanges) this.applySize();
  }

  // Draws while the model is turned: where that takes too long for the eye, coarser from now on.
  drawMoving(view, toPage) {
    if (this.coarse === this.enough && this.cost > slow && this.enough < 2) ++this.enough;
    this.setCoarse(this.enough);
    const before = performance.now();
    this.draw(view, toPage);
    this.colourAt(0, 0);  // returns when all is painted
    this.cost = performance.now() - before;
  }

  // Draws the whole picture, which may take its time. What was quick while the model was turned may
  // be finer the next time.
  drawResting(view, toPage) {
    if (this.coarse && this.cost > 0 && this.cost < slow / 4) this.enough = Math.max(0, this.enough - 1);
    this.setCoarse(0);
    this.draw(view, toPage);
  }

  // `toPage`: from the host's screen to the canvas, {k, x, y, width, height} in pixels of the page.
  draw(view, toPage) {
    if (!this.scene) return;
    const { axes, scale, place } = view;
    const sx = 2 * toPage.k / toPage.width, sy = 2 * toPage.k / toPage.height;
    const [low, high] = this.depths(view);
    const sz = -1.96 / Math.max(high - low, 1e-6);  // what is nearest has the largest z, up to high
    const row = (i, factor, offset) => [...axes.map(axis => factor * scale * axis[i]), offset];
    this.uniforms.toClip.value.set(
      ...row(0, sx, sx * place[0] + 2 * toPage.x / toPage.width - 1),
      ...row(1, sy, sy * place[1] - (2 * toPage.y / toPage.height - 1)),
      ...row(2, sz, -sz * (low + high) / 2),
      0, 0, 0, 1);
    this.uniforms.toView.value.set(...[0, 1, 2].flatMap(i => axes.map(axis => axis[i])));
    for (const each of this.edgeObjects) each.visible = !this.coarse;
    const isMerged = this.coarse > 0 && this.canMerge();
    if (!isMerged) this.sortClear(view);
    this.renderer.render(isMerged ? this.merged() : this.stage, this.camera);
    ++this.frames;
  }

  canMerge() {
    return this.byProcessor && this.marks.length > 0 &&
      this.scene.pointCount <= mostMerged;
  }

  // A stage that holds all as one.
  merged() {
    if (!this.moving) {
      this.moving = new Moving(this.scene, this.uniforms, surfacesOf);
      this.moving.mark(this.states, new Map());
    }
    return this.moving.stage;
  }

  // What lies farther back is painted before what one sees it through.
  sortClear(view) {
    if (this.clearObjects.length < 2) return;
    const depth = new Map(this.clearObjects.map(
      each => [each, onScreen(view, this.scene.centre(each.userData.occurrence))[2]]));
    this.clearObjects.sort((one, other) => depth.get(one) - depth.get(other));
    const { children } = this.stage;
    children.splice(children.length - depth.size, depth.size, ...this.clearObjects);
  }

  // Between which depths all lies, in points of the screen.
  depths(view) {
    const middle = onScreen(view, this.scene.middle)[2], reach = this.scene.reach * view.scale;
    return [middle - reach, middle + reach];
  }

  // The colour of a pixel of the picture that was just drawn: red, green, blue, opacity, 0 to 255.
  colourAt(x, y) {
    const ratio = this.renderer.getPixelRatio();
    const pixel = new Uint8Array(4);
    this.gl.readPixels(Math.floor(x * ratio), this.gl.drawingBufferHeight - 1 - Math.floor(y * ratio),
      1, 1, this.gl.RGBA, this.gl.UNSIGNED_BYTE, pixel);
    return [...pixel];
  }
}

// Whether one can look through an occurrence, or through one of its surfaces.
function isClearAt(scene, i) {
  const isClear = look => scene.looks[look][3] < 0.999;
  return isClear(scene.lookOf[i]) || (!scene.covered[i] &&
    scene.parts[scene.partOf[i]].surfaces.some(([, look]) => isClear(look)));
}

// Whether pictures are painted by the processor, which has no time for smooth edges.
function isByProcessor() {
  const probe = document.createElement('canvas').getContext('webgl2');
  const about = probe && probe.getExtension('WEBGL_debug_renderer_info');
  const name = about ? probe.getParameter(about.UNMASKED_RENDERER_WEBGL) : '';
  if (probe) probe.getExtension('WEBGL_lose_context').loseContext();
  return /swiftshader|llvmpipe|softpipe|software|basic render/i.test(name);
}

// Three numbers of four for each look.
function textureOf(looks) {
  const rows = Math.ceil(looks.length / looksInARow);
  const data = new Float32Array(4 * 3 * looksInARow * rows);
  looks.forEach((look, i) => {
    data.set(look.slice(0, 8), 12 * i);
    data.set(look.slice(8, 11), 12 * i + 8);
  });
  const texture = new DataTexture(data, 3 * looksInARow, rows, RGBAFormat, FloatType);
  texture.minFilter = texture.magFilter = NearestFilter;
  texture.generateMipmaps = false;
  texture.needsUpdate = true;
  return texture;
}

// For each point the look of its surface, or -1, and the surface's id.
function surfacesOf({ mesh, surfaces }) {
  const looks = new Map(surfaces);
  const data = new Float32Array(2 * mesh.points.length / 3);
  let at = 0;
  for (const [id, count] of mesh.surfaces) {
    const look = looks.has(id) ? looks.get(id) : -1;
    for (const end = at + 3 * count; at < end; ++at) data.set([look, id], 2 * mesh.triangles[at]);
  }
  return new BufferAttribute(data, 2);
}
