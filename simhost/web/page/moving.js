// All parts of a scene as one geometry, with the light worked out at its points: the picture while
// the model is turned and a processor paints, to which each instance and each pixel is dear.
import {
  BackSide, BufferAttribute, BufferGeometry, DoubleSide, Float32BufferAttribute, FrontSide, Mesh,
  Scene as Stage, ShaderMaterial, Uint32BufferAttribute,
} from '/three/build/three.module.js';

// What is marked, in the light: 1 selected, 2 under the pointer.
export const marking = `
vec3 marked(vec3 seen, float state) {
  if (state > 1.5) return mix(seen, vec3(1.0, 0.72, 0.25), 0.3);
  if (state > 0.5) return mix(seen, vec3(0.2, 0.85, 0.35), 0.5);
  return seen;
}`;

const vertexShader = `
attribute vec4 colour, light;  // how even the light is, the highlight, its sharpness, the mark
uniform mat4 toClip;
uniform mat3 toView;
varying vec4 seen;
${marking}

void main() {
#ifdef INSIDE
  vec3 n = toView * -normal;
  const vec2 kept = vec2(0.85, 0.0);  // of the light, of the highlight
#else
  vec3 n = toView * normal;
  const vec2 kept = vec2(1.0, 1.0);
#endif
  vec3 from = normalize(vec3(-0.45, 0.75, 0.65));
  vec3 halfway = normalize(from + vec3(0.0, 0.0, 1.0));
  float factor = 0.9 * light.x + 1.12 * (1.0 - light.x) * (0.5 + 0.5 * dot(n, from));
  float shine = pow(max(0.0, dot(n, halfway)), 8.0 + 40.0 * light.z);
  vec3 lit = kept.x * factor * colour.rgb + kept.y * 0.35 * light.y * shine;
  seen = vec4(marked(lit, 2.0 * light.w), colour.a);
  gl_Position = toClip * vec4(position, 1.0);
}`;
const fragmentShader = 'varying vec4 seen; void main() { gl_FragColor = seen; }';

export class Moving {
  // `uniforms` are those of the painter; `surfacesOf` gives the looks of a part's points.
  constructor(scene, uniforms, surfacesOf) {
    this.scene = scene;
    this.surfaces = scene.parts.map(part => surfacesOf(part).array);
    let points = 0;
    this.first = [];  // number of each occurrence's first point
    for (let i = 0; i < scene.count; ++i) {
      this.first.push(points);
      points += scene.mesh(i).points.length / 3;
    }
    this.colours = new Uint8Array(4 * points);
    this.lights = new Uint8Array(4 * points);
    const attributes = this.placed(points);
    attributes.colour = new BufferAttribute(this.colours, 4, true);
    attributes.light = this.lightAttribute = new BufferAttribute(this.lights, 4, true);
    for (let i = 0; i < scene.count; ++i) this.paint(i);
    const [solid, clear, isMixed] = this.sorted();
    const add = (triangles, more) => {
      const geometry = new BufferGeometry();
      for (const [name, each] of Object.entries(attributes)) geometry.setAttribute(name, each);
      geometry.setIndex(new Uint32BufferAttribute(triangles, 1));
      const mesh = new Mesh(geometry, new ShaderMaterial(
        { vertexShader, fragmentShader, uniforms, ...more }));
      mesh.frustumCulled = false;
      this.stage.add(mesh);
    };
    this.stage = new Stage();
    this.stage.autoUpdate = false;
    if (solid.length) add(solid, { side: isMixed ? DoubleSide : FrontSide });
    if (!clear.length) return;
    const seenThrough = { transparent: true, depthWrite: false };
    add(clear, { side: BackSide, defines: { INSIDE: 1 }, ...seenThrough });
    add(clear, { side: FrontSide, ...seenThrough });
  }

  // Points and normals in the model.
  placed(count) {
    const { scene } = this, p = scene.placements;
    const position = new Float32Array(3 * count), normal = new Float32Array(3 * count);
    for (let i = 0; i < scene.count; ++i) {
      const { points, normals } = scene.mesh(i), at = 12 * i;
      const unit = Math.hypot(p[at], p[at + 1], p[at + 2]) || 1;
      for (let j = 0, to = 3 * this.first[i]; j < points.length; j += 3, to += 3) {
        for (let k = 0; k < 3; ++k) {
          position[to + k] = points[j] * p[at + k] + points[j + 1] * p[at + 3 + k] +
              points[j + 2] * p[at + 6 + k] + p[at + 9 + k];
          normal[to + k] = (normals[j] * p[at + k] + normals[j + 1] * p[at + 3 + k] +
              normals[j + 2] * p[at + 6 + k]) / unit;
        }
      }
    }
    return { position: new Float32BufferAttribute(position, 3),
      normal: new Float32BufferAttribute(normal, 3) };
  }

  // The look of a point of the occurrence at number i.
  lookOf(i, point) {
    const { scene } = this;
    const own = scene.covered[i] ? -1 : this.surfaces[scene.partOf[i]][2 * point];
    return scene.looks[own < 0 ? scene.lookOf[i] : own];
  }

  paint(i) {
    const count = this.scene.mesh(i).points.length / 3;
    for (let j = 0; j < count; ++j) {
      const look = this.lookOf(i, j), to = 4 * (this.first[i] + j);
      const sum = Math.max(look[4] + look[5], 1e-6), brightness = Math.min(1, sum / 1.2);
      for (let k = 0; k < 3; ++k) this.colours[to + k] = 255 * brightness * look[k];
      this.colours[to + 3] = 255 * look[3];
      this.lights[to] = 255 * look[4] / sum;
      this.lights[to + 1] = 255 * look[6] * (look[8] + look[9] + look[10]) / 3;
      this.lights[to + 2] = 255 * Math.min(1, look[7]);
    }
  }

  markOne(i, [state, surface]) {
    const ids = this.surfaces[this.scene.partOf[i]];
    const count = this.scene.mesh(i).points.length / 3;
    for (let j = 0; j < count; ++j) {
      const isMarked = surface < 0 || surface === ids[2 * j + 1];
      this.lights[4 * (this.first[i] + j) + 3] = isMarked ? 127 * state : 0;
    }
  }

  // How occurrences are marked from now on, as for the painter; `before`: until now.
  mark(states, before) {
    const changed = new Set([...states.keys(), ...before.keys()]);
    for (const i of changed) this.markOne(i, states.get(i) || [0, -1]);
    if (changed.size) this.lightAttribute.needsUpdate = true;
  }

  // The triangles that hide and those that one looks through, and whether a part has both.
  sorted() {
    const solid = [], clear = [];
    let isMixed = false;
    for (let i = 0; i < this.scene.count; ++i) {
      const { triangles } = this.scene.mesh(i), first = this.first[i];
      let hides = false, shows = false;
      for (let t = 0; t < triangles.length; t += 3) {
        const alpha = this.lookOf(i, triangles[t])[3];
        if (alpha >= 0.999) hides = true;
        else shows = true;
        if (alpha <= 0.02) continue;
        (alpha >= 0.999 ? solid : clear).push(
          first + triangles[t], first + triangles[t + 1], first + triangles[t + 2]);
      }
      isMixed = isMixed || (hides && shows);
    }
    return [solid, clear, isMixed];
  }

  dispose() {
    for (const { geometry, material } of this.stage.children) {
      geometry.dispose();
      material.dispose();
    }
  }
}
