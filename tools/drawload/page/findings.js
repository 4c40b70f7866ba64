
// ---- findings of the check: a list, marks in the drawing, and the drawing without its duplicates --------------
let finding = null, place = -1;  // what is shown of the list, and which of its places was jumped to
const isRepeated = new Set();    // segments that are drawn before
for (let i = 0; i < preflight.repeated.length; i += 2) {
  const result = job.results[preflight.repeated[i]];
  isRepeated.add(segments[result.at + preflight.repeated[i + 1]]);
}

function listFindings() {
  const list = document.querySelector('#findings ol');
  for (const entry of preflight.findings) {
    const item = document.createElement('li'), button = document.createElement('button'), color = document.createElement('i');
    color.style.background = entry.color;
    button.dataset.code = entry.code;
    button.append(color, entry.text + (entry.ofWeight ? '' : ' (may be meant)'));
    button.addEventListener('click', () => jumpTo(entry, finding === entry ? (place + 1) % Math.max(entry.places.length, 1) : 0));
    item.append(button);
    list.append(item);
  }
  byId('repeated').parentElement.hidden = isRepeated.size === 0;
}

// Brings a place into the middle of the free area, near enough to see what is around it.
function jumpTo(entry, index) {
  finding = entry;
  place = index;
  for (const button of document.querySelectorAll('#findings button')) button.setAttribute('aria-pressed', button.dataset.code === entry.code);
  const there = entry.places[index];
  byId('place').textContent = there ? 'place ' + (index + 1) + ' of ' + entry.count : '';
  if (!there) { draw(); return; }
  const area = freeArea(), [x, y] = there.at, box = there.box || [x, y, x, y], whole = job.bounds;
  const side = Math.max(box[2] - box[0], box[3] - box[1], Math.max(whole.width, whole.height) / 20, 0.5);
  scale = Math.min(area.width, area.height) / side / 2;
  shiftX = area.left + area.width / 2 - x * scale;
  shiftY = area.top + area.height / 2 + y * scale;
  fitted = false;
  show(job.results[there.result]);
  draw();
}

function markOf({segment, result, other, at, box}) {
  const path = new Path2D();
  if (segment !== undefined) addSegment(path, segments[job.results[result].at + segment].values);
  else if (other) { path.moveTo(...at); path.lineTo(...other); }
  else if (box) path.rect(box[0], box[1], box[2] - box[0], box[3] - box[1]);
  for (const [x, y] of other ? [at, other] : [at]) {
    path.moveTo(x + 7 / scale, y);
    path.arc(x, y, 7 / scale, 0, 2 * Math.PI);
  }
  return path;
}

function drawMarks() {
  if (!finding) return;
  usePage();
  finding.places.forEach((there, index) => strokePath(markOf(there), finding.color, (index === place ? 4 : 2) / scale));
}

// The marks come over the drawing and under the rulers.
const drawRulerAlone = drawRuler;
drawRuler = () => { drawMarks(); drawRulerAlone(); };

// Without duplicates, a piece is drawn from those of its segments that are drawn for the first time.
const piecesWithout = new Map();
function withoutRepeated(piece) {
  if (!piecesWithout.has(piece)) {
    const parts = piece.parts.filter((segment) => !isRepeated.has(segment));
    piecesWithout.set(piece, {...piece, parts, path: pathOf(parts, Infinity)});
  }
  return piecesWithout.get(piece);
}
const drawPieceWhole = drawPiece;
drawPiece = (piece, reached) => drawPieceWhole(byId('repeated').checked ? withoutRepeated(piece) : piece, reached);
byId('repeated').addEventListener('change', draw);
listFindings();
fit();
