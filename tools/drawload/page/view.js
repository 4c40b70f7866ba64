'use strict';
// One job as drawload read it: results in the order of work, in millimetres, y up. A curve's `path` is a flat
// list of segments: [0, x1, y1, x2, y2] for a line, [3, x1, y1, cx1, cy1, cx2, cy2, x2, y2] for a cubic Bezier.
const job = JSON.parse(document.getElementById('job').textContent);
const byId = (id) => document.getElementById(id);
const canvas = byId('view');
const pen = canvas.getContext('2d');

// ---- the job as pieces: segments of one colour and one block of settings, drawn at once --------------------
const PIECE_SEGMENTS = 2000;
const pieces = [];    // {result: the first one, path: Path2D, from, to: millimetres along the job, parts: segments}
const segments = [];  // {result, values, from, to}
const travels = [];   // pieces of straight moves between the results
let total = 0;

function cubicAt(v, t) {
  const u = 1 - t, a = u * u * u, b = 3 * u * u * t, c = 3 * u * t * t, d = t * t * t;
  return [a * v[1] + b * v[3] + c * v[5] + d * v[7], a * v[2] + b * v[4] + c * v[6] + d * v[8]];
}

function pointsOf(v) {
  if (v[0] === 0) return [[v[1], v[2]], [v[3], v[4]]];
  const points = [];
  for (let i = 0; i <= 16; ++i) points.push(cubicAt(v, i / 16));
  return points;
}

function lengthOf(v) {
  const points = pointsOf(v);
  let sum = 0;
  for (let i = 1; i < points.length; ++i) sum += Math.hypot(points[i][0] - points[i - 1][0], points[i][1] - points[i - 1][1]);
  return sum;
}

// The first part of a segment, up to its parameter t: of a cubic by de Casteljau's construction.
function headOf(v, t) {
  const mix = (from, to) => [from[0] + (to[0] - from[0]) * t, from[1] + (to[1] - from[1]) * t];
  const [p0, p1, p2, p3] = [[v[1], v[2]], [v[3], v[4]], [v[5], v[6]], [v[7], v[8]]];
  if (v[0] === 0) return [0, ...p0, ...mix(p0, p1)];
  const a = mix(p0, p1), b = mix(p1, p2), c = mix(p2, p3), d = mix(a, b), e = mix(b, c);
  return [3, ...p0, ...a, ...d, ...mix(d, e)];
}

function addSegment(path, v) {
  path.moveTo(v[1], v[2]);
  if (v[0] === 0) path.lineTo(v[3], v[4]);
  else path.bezierCurveTo(v[3], v[4], v[5], v[6], v[7], v[8]);
}

function newPiece(list, result) {
  const piece = {result, path: new Path2D(), from: total, to: total, parts: []};
  list.push(piece);
  return piece;
}

function addTo(piece, segment) {
  piece.parts.push(segment);
  piece.to = segment.to;
  addSegment(piece.path, segment.values);
}

const growing = new Map();  // the piece of each colour and block of settings that takes further segments
function pieceFor(result) {
  const key = result.color + ' ' + result.settings;
  let piece = growing.get(key);
  if (!piece || piece.parts.length >= PIECE_SEGMENTS) growing.set(key, piece = newPiece(pieces, result));
  return piece;
}

function addTravel(head, x, y) {
  if (!head || (head[0] === x && head[1] === y)) return;
  const last = travels[travels.length - 1];
  const piece = last && last.parts.length < PIECE_SEGMENTS ? last : newPiece(travels, null);
  addTo(piece, {result: null, values: [0, ...head, x, y], from: total, to: total});
}

function segmentsOf(path) {
  const list = [];
  for (let i = 0, size; i < path.length; i += size) {
    size = path[i] === 0 ? 5 : 9;
    list.push(path.slice(i, i + size));
  }
  return list;
}

function addCurve(result, head) {
  const list = segmentsOf(result.path), lengths = list.map(lengthOf);
  const chords = lengths.reduce((sum, length) => sum + length, 0);
  const stretch = chords > 0 ? result.length / chords : 1;  // the chords of a cubic are a little shorter than it is
  result.at = segments.length;
  list.forEach((values, i) => {
    addTravel(head, values[1], values[2]);
    const segment = {result, values, from: total, to: total + lengths[i] * stretch};
    segments.push(segment);
    addTo(pieceFor(result), segment);
    total = segment.to;
    head = values.slice(-2);
  });
  result.end = segments.length;
  return head;
}

function cutIntoPieces() {
  let head = null;
  for (const result of job.results) {
    if (result.kind === 'curve') { head = addCurve(result, head); continue; }
    const [a, b, c, d, e, f] = result.matrix;
    addTravel(head, e, f);
    newPiece(pieces, result);
    growing.clear();  // what is cut later is drawn over the bitmap
    head = [a * result.width + c * result.height + e, b * result.width + d * result.height + f];
  }
}

// ---- layers ------------------------------------------------------------------------------------------------
let hidden = new Set();
let by = 'color';
const layerOf = (result) => (by === 'color' ? result.color : 'settings ' + (result.settings + 1));

function listLayers() {
  const lengths = new Map();
  for (const result of job.results) {
    const name = layerOf(result);
    const entry = lengths.get(name) || {length: 0, count: 0, result};
    entry.length += result.length || 0;
    entry.count += 1;
    lengths.set(name, entry);
  }
  const list = byId('layers');
  list.textContent = '';
  for (const [name, {length, count, result}] of lengths) {
    const item = document.createElement('li');
    const label = document.createElement('label');
    const box = document.createElement('input');
    box.type = 'checkbox';
    box.checked = !hidden.has(name);
    box.dataset.layer = name;
    box.addEventListener('change', () => {
      if (box.checked) hidden.delete(name);
      else hidden.add(name);
      draw();
    });
    const color = document.createElement('i');
    if (by === 'color') color.style.background = visible(name);
    const text = document.createElement('span');
    text.textContent = by === 'color' ? name : describe(result);
    const size = document.createElement('b');
    size.textContent = count + ' · ' + (result.kind === 'bitmap' && length === 0 ? 'bitmap' : length.toFixed(1) + ' mm');
    label.append(box, ...(by === 'color' ? [color] : []), text, size);
    item.append(label);
    list.append(item);
  }
}

// The speeds and powers that count for the object, and all else in which the layers differ.
function describe(result) {
  const settings = job.settings[result.settings], cuts = settings.processType === 0 && result.kind === 'curve';
  const told = cuts ? ['processType', 'cutMode', 'cutSpeed', 'cutPower'] : ['engraveSpeed', 'EngMinP', 'EngMaxP'];
  const differs = (name) => !told.includes(name) && job.settings.some((other) => other[name] !== settings[name]);
  const rest = Object.keys(settings).filter(differs).map((name) => ', ' + name + ' ' + settings[name]);
  return (cuts ? 'cut ' + settings.cutSpeed + ' mm/s, ' + settings.cutPower + ' %'
    : 'engrave ' + settings.engraveSpeed + ' mm/s, ' + settings.EngMinP + ' to ' + settings.EngMaxP + ' %') + rest.join('');
}

// ---- view: page millimetres to screen pixels ---------------------------------------------------------------
const RULER_WIDTH = 34, RULER_HEIGHT = 20;
let scale = 1, shiftX = 0, shiftY = 0, shown = null, done = 1, ratio = 1;
let fitted = true;  // until the view is moved by hand
const toScreen = (x, y) => [x * scale + shiftX, -y * scale + shiftY];
const toPage = (x, y) => [(x - shiftX) / scale, (shiftY - y) / scale];

// What neither the rulers nor the panels cover, less a margin. A narrow screen has its panel below the drawing.
function freeArea() {
  const margin = 12, side = byId('side').getBoundingClientRect(), isBelow = side.left < canvas.clientWidth / 3;
  const right = isBelow ? canvas.clientWidth : side.left;
  const bottom = Math.min(document.querySelector('footer').getBoundingClientRect().top, isBelow ? side.top : Infinity);
  const left = RULER_WIDTH + margin, top = RULER_HEIGHT + margin;
  return {left, top, width: Math.max(right - margin - left, 50), height: Math.max(bottom - margin - top, 50)};
}

function fit() {
  const box = job.bounds, area = freeArea();
  scale = Math.min(area.width / Math.max(box.width, 0.01), area.height / Math.max(box.height, 0.01));
  shiftX = area.left + (area.width - box.width * scale) / 2 - box.minX * scale;
  shiftY = area.top + (area.height - box.height * scale) / 2 + box.maxY * scale;
  fitted = true;
  draw();
}

function moveBy(x, y) {
  shiftX += x;
  shiftY += y;
  fitted = false;
  draw();
}

function zoomAt(x, y, factor) {
  factor = Math.min(Math.max(scale * factor, 1e-4), 1e5) / scale;
  shiftX = x - (x - shiftX) * factor;
  shiftY = y - (y - shiftY) * factor;
  scale *= factor;
  fitted = false;
  draw();
}

const images = new Map();
function imageOf(result) {
  if (!images.has(result)) {
    const image = new Image();
    image.addEventListener('load', () => draw());
    image.src = result.png;
    images.set(result, image);
  }
  return images.get(result);
}

function usePage() { pen.setTransform(scale * ratio, 0, 0, -scale * ratio, shiftX * ratio, shiftY * ratio); }

function frameOf(bitmap) {
  const [a, b, c, d, e, f] = bitmap.matrix, path = new Path2D();
  for (const [x, y] of [[0, 0], [bitmap.width, 0], [bitmap.width, bitmap.height], [0, bitmap.height]]) {
    path.lineTo(a * x + c * y + e, b * x + d * y + f);
  }
  path.closePath();
  return path;
}

function drawBitmap(result) {
  const image = imageOf(result);
  if (image.complete && image.naturalWidth) {
    pen.save();
    pen.transform(...result.matrix);
    pen.drawImage(image, 0, 0);
    pen.restore();
  }
  strokePath(frameOf(result), '#8a93a0', lineWidth(1));  // a white picture would be lost on a white page
}

function pathOf(parts, reached) {
  const path = new Path2D();
  for (const {values, from, to} of parts) {
    if (from > reached) break;
    addSegment(path, to <= reached ? values : headOf(values, (reached - from) / (to - from)));
  }
  return path;
}

const pathUpTo = (piece, reached) => (piece.to <= reached ? piece.path : pathOf(piece.parts, reached));

// Browsers draw lines of one device pixel many times faster than wider ones.
const MANY_SEGMENTS = 20000;
const lineWidth = (usual) => (segments.length > MANY_SEGMENTS ? 1 / ratio : usual) / scale;

function strokePath(path, color, width) {
  pen.strokeStyle = color;
  pen.lineWidth = width;
  pen.stroke(path);
}

function drawPiece(piece, reached) {
  if (hidden.has(layerOf(piece.result)) || piece.from > reached) return;
  if (piece.result.kind === 'bitmap') drawBitmap(piece.result);
  else strokePath(pathUpTo(piece, reached), visible(piece.result.color), lineWidth(1.2));
}

// The colour as it is shown: one too near the page's own keeps its hue and goes as far towards white or black as it must.
function visible(color) {
  const MIDDLE = 115;  // luma, of 255
  const dark = document.documentElement.dataset.theme === 'dark', aim = dark ? 255 : 0;
  const channels = [1, 3, 5].map((at) => parseInt(color.slice(at, at + 2), 16));
  const luma = 0.299 * channels[0] + 0.587 * channels[1] + 0.114 * channels[2];
  if (dark ? luma >= MIDDLE : luma <= MIDDLE) return color;
  const share = (MIDDLE - luma) / (aim - luma);
  return '#' + channels.map((c) => Math.round(c + (aim - c) * share).toString(16).padStart(2, '0')).join('');
}

function drawTravels(reached) {
  if (segments.length <= MANY_SEGMENTS) pen.setLineDash([4 / scale, 4 / scale]);
  for (const piece of travels) {
    if (piece.from <= reached) strokePath(pathUpTo(piece, reached), '#e08a00', lineWidth(0.8));
  }
  pen.setLineDash([]);
}

function drawRuler() {
  pen.setTransform(ratio, 0, 0, ratio, 0, 0);
  const style = getComputedStyle(document.documentElement);
  const width = canvas.clientWidth, height = canvas.clientHeight;
  const step = [1, 2, 5].map((n) => n * 10 ** Math.floor(Math.log10(60 / scale))).concat(10 ** Math.ceil(Math.log10(60 / scale)))
    .find((n) => n * scale >= 50) || 10 ** Math.ceil(Math.log10(60 / scale));
  const text = (n) => String(+n.toPrecision(8));
  pen.fillStyle = style.getPropertyValue('--panel');
  pen.fillRect(0, 0, width, RULER_HEIGHT);
  pen.fillRect(0, RULER_HEIGHT, RULER_WIDTH, height);
  pen.fillStyle = pen.strokeStyle = style.getPropertyValue('--ink');
  pen.lineWidth = 1;
  pen.font = '10px system-ui, sans-serif';
  pen.beginPath();
  const [left, top] = toPage(RULER_WIDTH, RULER_HEIGHT), [right, bottom] = toPage(width, height);
  for (let i = Math.ceil(left / step); i * step <= right; ++i) {
    const x = Math.round(toScreen(i * step, 0)[0]) + 0.5;
    pen.moveTo(x, RULER_HEIGHT - 6);
    pen.lineTo(x, RULER_HEIGHT);
    pen.fillText(text(i * step), x + 2, 10);
  }
  for (let i = Math.ceil(bottom / step); i * step <= top; ++i) {
    const y = Math.round(toScreen(0, i * step)[1]) + 0.5;
    pen.moveTo(RULER_WIDTH - 6, y);
    pen.lineTo(RULER_WIDTH, y);
    pen.fillText(text(i * step), 2, y - 2);
  }
  pen.stroke();
  pen.fillText('mm', 4, 10);
}

let waiting = false;
function draw() {
  if (waiting) return;
  waiting = true;
  requestAnimationFrame(() => {
    waiting = false;
    ratio = window.devicePixelRatio || 1;
    const width = Math.round(canvas.clientWidth * ratio), height = Math.round(canvas.clientHeight * ratio);
    if (canvas.width !== width || canvas.height !== height) { canvas.width = width; canvas.height = height; }
    pen.setTransform(1, 0, 0, 1, 0, 0);
    pen.clearRect(0, 0, width, height);
    usePage();
    pen.lineCap = pen.lineJoin = 'round';
    const reached = done >= 1 ? Infinity : done * total;
    for (const piece of pieces) drawPiece(piece, reached);
    if (byId('travel').checked && done < 1) drawTravels(reached);
    if (shown && !hidden.has(layerOf(shown))) {
      const path = shown.kind === 'curve' ? pathOf(segments.slice(shown.at, shown.end), reached) : frameOf(shown);
      strokePath(path, visible(shown.color), 3 / scale);
    }
    drawRuler();
    byId('progress').textContent = (Math.min(done, 1) * total).toFixed(1) + ' of ' + total.toFixed(1) + ' mm';
  });
}

// ---- which object lies under the pointer: a grid over the bounds -------------------------------------------
let grid = null;
function buildGrid() {
  const box = job.bounds, cells = 200;
  const size = Math.max(box.width, box.height, 1e-6) / cells;
  grid = {size, cells: new Map()};
  segments.forEach((segment, index) => {
    const points = pointsOf(segment.values);
    const seen = new Set();
    for (let i = 1; i < points.length; ++i) {
      const [x1, y1] = points[i - 1], [x2, y2] = points[i];
      const steps = Math.min(Math.ceil(Math.hypot(x2 - x1, y2 - y1) / size * 2), 1000) + 1;
      for (let s = 0; s <= steps; ++s) {
        const key = cellKey(x1 + (x2 - x1) * s / steps, y1 + (y2 - y1) * s / steps);
        if (seen.has(key)) continue;
        seen.add(key);
        if (!grid.cells.has(key)) grid.cells.set(key, []);
        grid.cells.get(key).push(index);
      }
    }
  });
}
const cellKey = (x, y) => Math.floor((x - job.bounds.minX) / grid.size) * 100003 + Math.floor((y - job.bounds.minY) / grid.size);

function distanceTo(segment, x, y) {
  const points = pointsOf(segment.values);
  let best = Infinity;
  for (let i = 1; i < points.length; ++i) {
    const [ax, ay] = points[i - 1], dx = points[i][0] - ax, dy = points[i][1] - ay;
    const t = Math.min(Math.max(((x - ax) * dx + (y - ay) * dy) / (dx * dx + dy * dy || 1), 0), 1);
    best = Math.min(best, Math.hypot(ax + t * dx - x, ay + t * dy - y));
  }
  return best;
}

function objectAt(screenX, screenY) {
  if (!grid) buildGrid();
  const [x, y] = toPage(screenX, screenY), reach = 6 / scale;
  const span = Math.min(Math.ceil(reach / grid.size), 20);
  let best = reach, found = null;
  for (let i = -span; i <= span; ++i) {
    for (let j = -span; j <= span; ++j) {
      for (const index of grid.cells.get(cellKey(x + i * grid.size, y + j * grid.size)) || []) {
        const segment = segments[index];
        if (hidden.has(layerOf(segment.result))) continue;
        const distance = distanceTo(segment, x, y);
        if (distance <= best) { best = distance; found = segment.result; }
      }
    }
  }
  return found || job.results.find((r) => r.kind === 'bitmap' && !hidden.has(layerOf(r)) && holds(r, x, y)) || null;
}

function holds(bitmap, x, y) {
  const [a, b, c, d, e, f] = bitmap.matrix, det = a * d - b * c;
  const u = (d * (x - e) - c * (y - f)) / det, v = (a * (y - f) - b * (x - e)) / det;
  return u >= 0 && v >= 0 && u <= bitmap.width && v <= bitmap.height;
}

let picked = null;
function show(result) {
  if (result === shown) return;
  shown = result;
  const list = byId('object');
  list.textContent = '';
  if (result) {
    const rows = [['object', result.kind + ' ' + (job.results.indexOf(result) + 1) + ' of ' + job.results.length]];
    if (result.kind === 'curve') rows.push(['length', result.length.toFixed(3) + ' mm'], ['segments', result.segments], ['colour', result.color]);
    else {
      const [a, b, c, d] = result.matrix, across = Math.hypot(a, b) * result.width, down = Math.hypot(c, d) * result.height;
      rows.push(['pixels', result.width + ' × ' + result.height], ['size', across.toFixed(3) + ' × ' + down.toFixed(3) + ' mm'],
        ['density', (result.width * 25.4 / across).toFixed(0) + ' × ' + (result.height * 25.4 / down).toFixed(0) + ' dpi']);
    }
    for (const [key, value] of Object.entries(job.settings[result.settings])) rows.push([key, value === null ? '' : +value.toPrecision(9)]);
    for (const [key, value] of rows) {
      const term = document.createElement('dt'), data = document.createElement('dd');
      term.textContent = key;
      data.textContent = value;
      list.append(term, data);
    }
  }
  draw();
}

// ---- mouse, wheel, touch, keys -----------------------------------------------------------------------------
const fingers = new Map();
let moved = false;
canvas.addEventListener('pointerdown', (event) => {
  canvas.setPointerCapture(event.pointerId);
  fingers.set(event.pointerId, [event.offsetX, event.offsetY]);
  moved = false;
});
canvas.addEventListener('pointermove', (event) => {
  const before = fingers.get(event.pointerId), now = [event.offsetX, event.offsetY];
  if (!before) { if (!picked) show(objectAt(...now)); return; }
  if (Math.hypot(now[0] - before[0], now[1] - before[1]) > 2) moved = true;
  if (!moved) return;
  const other = [...fingers].find(([id]) => id !== event.pointerId);
  if (other) {
    // What lies between the fingers stays between them.
    const spread = (p) => Math.hypot(p[0] - other[1][0], p[1] - other[1][1]) || 1;
    zoomAt((before[0] + other[1][0]) / 2, (before[1] + other[1][1]) / 2, spread(now) / spread(before));
    moveBy((now[0] - before[0]) / 2, (now[1] - before[1]) / 2);
  } else {
    moveBy(now[0] - before[0], now[1] - before[1]);
  }
  fingers.set(event.pointerId, now);
});
canvas.addEventListener('pointerup', (event) => {
  fingers.delete(event.pointerId);
  if (moved) return;
  picked = objectAt(event.offsetX, event.offsetY);
  show(picked);
});
canvas.addEventListener('pointercancel', (event) => fingers.delete(event.pointerId));
canvas.addEventListener('wheel', (event) => {
  event.preventDefault();
  zoomAt(event.offsetX, event.offsetY, Math.exp(-event.deltaY * (event.deltaMode === 1 ? 0.05 : 0.0015)));
}, {passive: false});
canvas.addEventListener('keydown', (event) => {
  const move = {ArrowLeft: [40, 0], ArrowRight: [-40, 0], ArrowUp: [0, 40], ArrowDown: [0, -40]}[event.key];
  if (move) moveBy(...move);
  if (event.key === '+' || event.key === '-') zoomAt(canvas.clientWidth / 2, canvas.clientHeight / 2, event.key === '+' ? 1.25 : 0.8);
  if (event.key === '0') fit();
});

// ---- order of work -----------------------------------------------------------------------------------------
let playing = 0;
function setDone(value) { done = value; byId('slider').value = Math.round(value * 1000); draw(); }
byId('slider').addEventListener('input', (event) => { playing = 0; byId('play').textContent = 'Play'; done = event.target.value / 1000; draw(); });
byId('play').addEventListener('click', () => {
  if (playing) { playing = 0; byId('play').textContent = 'Play'; return; }
  if (done >= 1) setDone(0);
  const token = playing = performance.now();
  byId('play').textContent = 'Pause';
  let last = token;
  const step = (now) => {
    if (playing !== token) return;
    setDone(Math.min(done + Math.max(now - last, 0) / 10000, 1));
    last = now;
    if (done < 1) requestAnimationFrame(step);
    else { playing = 0; byId('play').textContent = 'Play'; }
  };
  requestAnimationFrame(step);
});

// ---- start -------------------------------------------------------------------------------------------------
for (const input of document.querySelectorAll('input[name=by]')) {
  input.addEventListener('change', () => { by = input.value; hidden = new Set(); listLayers(); draw(); });
}
byId('fit').addEventListener('click', fit);
byId('travel').addEventListener('change', draw);
byId('theme').addEventListener('click', () => {
  const root = document.documentElement;
  root.dataset.theme = root.dataset.theme === 'dark' ? 'light' : 'dark';
  listLayers();
  draw();
});
document.documentElement.dataset.theme = matchMedia('(prefers-color-scheme: dark)').matches ? 'dark' : 'light';
window.addEventListener('resize', () => (fitted ? fit() : draw()));
cutIntoPieces();
byId('title').textContent = job.name;
byId('facts').textContent = job.results.length + ' results, ' + job.bounds.width.toFixed(2) + ' × ' + job.bounds.height.toFixed(2) +
  ' mm, cut ' + job.cutLength.toFixed(1) + ' mm, travel ' + job.travelLength.toFixed(1) + ' mm';
listLayers();
fit();
