"use strict";

// A member's drawing. `camjob show` draws the same: DrawingLayout.cpp and SvgDrawing.cpp.

const STATES = ["set aside", "in order", "warning", "error"];
const STATE_CLASSES = ["set-aside", "in-order", "warning", "error"];
const KINDS = ["hole", "slot", "rectangle", "sink", "opening", "notch", "mark", "text", "cut", "cut", "outline"];

function escaped(text) {
  return String(text).replace(/[&<>"]/g, (c) => ({ "&": "&amp;", "<": "&lt;", ">": "&gt;", '"': "&quot;" })[c]);
}

function number(value, decimals = 3) {
  return String(Number(value.toFixed(decimals)));
}

function points(flat) {
  const list = [];
  for (let i = 0; i + 1 < flat.length; i += 2) list.push([flat[i], flat[i + 1]]);
  return list;
}

// The arrays of CompactMember.cpp with names; what is missing at the end is 0.
function memberOf(raw, texts) {
  const face = (f) => ({ name: texts[f[0]], width: f[1] || 0, isUnrolled: f[2] === 1, outlines: (f[3] || []).map(points) });
  const feature = (f, index) => ({
    index, isEarlier: false, isMitre: f[0] === 9, kind: f[0] || 0, state: f[1] || 0, face: f[2] || 0, line: f[3] || 0, x: f[4] || 0, y: f[5] || 0, size: f[6] || 0,
    shape: texts[f[7] || 0], code: texts[f[8] || 0], length: f[9] || 0, angle: f[10] || 0,
    told: f[11] || [f[4] || 0, f[5] || 0], remark: texts[f[12] || 0], outline: points(f[13] || []), text: texts[f[14] || 0],
  });
  const finding = (f) => ({ state: f[0], text: f[1], line: f[2] || 0, isNonStandard: f[3] === 1, rule: texts[f[4] || 0], remedy: texts[f[5] || 0] });
  return {
    mark: raw[0], profile: texts[raw[1]], length: raw[2], quantity: raw[3], group: texts[raw[4]], state: raw[5],
    isNonStandard: raw[6] === 1, file: raw[7], accounts: texts[raw[8]],
    material: texts[raw[9]], findings: raw[10].map(finding), faces: raw[11].map(face), features: raw[12].map(feature),
    changes: raw[13] || [], earlier: (raw[14] || []).map((f) => ({ ...feature(f, -1), isEarlier: true })),
  };
}

const Drawing = (() => {
  const SYMBOL = 3.5, SMALLEST_SHAPE = 5, DIGIT = 0.56 * 11, LABEL_GAP = 6, PIXELS_PER_MM = 96 / 25.4;
  const WINDOW_GAP = 44, LABELS = 34, LONGEST_TRUE = 10, MARGIN = 10;
  const CODE_SIZE = 10, LETTER = 0.66 * CODE_SIZE, GAP = 3, OVERLAP = 0.5, MOST_LABELLED = 2000;

  // The sheet of paper or screen that a drawing is made for. On a narrow one faces have their names above them.
  function sheetOf(width, height = 1) {
    const isNarrow = width < 600;
    return {
      width, isNarrow, left: isNarrow ? 8 : 112, right: isNarrow ? 20 : 24, top: isNarrow ? 56 : 40, faceGap: isNarrow ? 30 : 16,
      facesHeight: 240 * height, trueHeight: 420 * height, windowHeight: 330 * height,
    };
  }

  const px = (value) => number(value, 2);
  const sum = (faces) => Math.max(1, faces.reduce((all, face) => all + face.width, 0));

  function stacked(panel, member, sheet) {
    let y = panel.top;
    panel.zeros = [];
    for (let face = member.faces.length - 1; face >= 0; --face) {
      y += member.faces[face].width * panel.scaleY;
      panel.zeros[face] = y;
      y += sheet.faceGap;
    }
    panel.bottom = y - sheet.faceGap;
    panel.end = Math.max(member.length, 0);
    panel.isTrue = panel.scaleX === panel.scaleY;
    panel.x = (x) => panel.left + (x - panel.from) * panel.scaleX;
    panel.y = (face, y) => panel.zeros[face] - y * panel.scaleY;
    // The middle of a symbol: what lies beyond the member shows at its edge.
    const seen = MARGIN - SYMBOL - 1;
    panel.symbolPlace = (feature) => [
      panel.x(Math.min(Math.max(feature.x, 0), panel.end)),
      Math.min(Math.max(panel.y(feature.face, feature.y), panel.top - seen), panel.bottom + seen),
    ];
    return panel;
  }

  function overviewOf(member, sheet) {
    const width = sheet.width - sheet.left - sheet.right, length = Math.max(member.length, 1);
    const widest = Math.max(1, ...member.faces.map((face) => face.width));
    const panel = { left: sheet.left, width, top: sheet.top, from: 0, to: length, scaleX: width / length, scaleY: sheet.facesHeight / sum(member.faces) };
    if (length <= LONGEST_TRUE * widest) panel.scaleX = panel.scaleY = Math.min(panel.scaleX, sheet.trueHeight / sum(member.faces));
    return stacked(panel, member, sheet);
  }

  // The first and the last feature with a finding, else with a change, else both ends.
  function placesOfInterest(member) {
    const faulty = member.features.filter((f) => f.state >= 2), xs = (faulty.length ? faulty : member.earlier).map((f) => f.x);
    return xs.length ? [Math.min(...xs), Math.max(...xs)] : [0, member.length];
  }

  // The windows show: the chosen feature; else what is of interest, in one window where it shows it all.
  function windowPlaces(member, chosen, most, shown) {
    if (chosen >= 0) return [member.features[chosen].x];
    const [first, last] = placesOfInterest(member);
    if (last - first <= 0.8 * shown) return [(first + last) / 2];
    return most > 1 ? [first, last] : [first];
  }

  function windowsOf(member, sheet, overview, chosen, most) {
    const scale = sheet.windowHeight / sum(member.faces);
    const places = windowPlaces(member, chosen, most, overview.width / scale);
    return places.map((place, i) => {
      const width = places.length === 1 ? overview.width : (overview.width - WINDOW_GAP) / 2, shown = width / scale;
      const from = Math.floor(Math.min(Math.max(place - shown / 2, 0), Math.max(member.length - shown, 0)));
      const left = i === 0 ? overview.left : overview.left + width + WINDOW_GAP;
      const top = overview.bottom + LABELS + 30 + sheet.top - 40;
      return stacked({ left, width, top, from, to: from + shown, scaleX: scale, scaleY: scale }, member, sheet);
    });
  }

  function labelsOf(member, panel) {
    const places = [0, member.length, ...member.features.filter((f) => f.state !== 0 && isShown(f)).map((f) => f.x)]
      .filter((x) => x >= panel.from && x <= panel.to).sort((a, b) => a - b);
    const ends = [panel.left - 100, panel.left - 100], labels = [];
    places.forEach((place, i) => {
      if (i > 0 && place === places[i - 1]) return;
      const text = number(place, 1), x = panel.x(place), half = text.length * DIGIT / 2;
      const row = x - half < ends[0] ? 1 : 0;
      if (x - half < ends[row] || (row === 1 && x < ends[0] - LABEL_GAP / 2)) return;
      ends[row] = x + half + LABEL_GAP;
      labels.push({ x, row, text });
    });
    return labels;
  }

  // ---- what stands beside a feature: FeatureLabels.cpp ---------------------------------------------------------

  const widthOf = (text) => [...text].length * LETTER;

  const covers = (a, b) => a.left < b.right - OVERLAP && b.left < a.right - OVERLAP && a.top < b.bottom - OVERLAP && b.top < a.bottom - OVERLAP;

  // Numbers of the findings that name a feature, "1, 3".
  function numbersOf(member, feature) {
    if (!feature.line) return "";
    return member.findings.flatMap((finding, i) => (finding.line === feature.line ? [i + 1] : [])).join(", ");
  }

  function codeOf(feature) {
    if (feature.state === 0) return "";
    return feature.code || (feature.isMitre ? `${number(feature.angle, 1)}°` : "");
  }

  const markedHeight = (feature, panel) => Math.min(Math.max(feature.size * panel.scaleY, 7), 14);

  function placeTaken(feature, panel) {
    const [symbolX, symbolY] = panel.symbolPlace(feature), x = panel.x(feature.x), y = panel.y(feature.face, feature.y);
    if (KINDS[feature.kind] !== "text") return { left: symbolX - SYMBOL, top: symbolY - SYMBOL, right: symbolX + SYMBOL, bottom: symbolY + SYMBOL };
    const height = markedHeight(feature, panel);
    return { left: x, top: y - height, right: x + widthOf(feature.text) * height / CODE_SIZE, bottom: y };
  }

  function reachOf(feature, panel) {
    if (!["hole", "slot", "rectangle", "sink"].includes(KINDS[feature.kind]) || !panel.isTrue) return [SYMBOL, SYMBOL];
    const half = panel.scaleX / 2;
    return [Math.max(SYMBOL, Math.max(feature.size, feature.length) * half), Math.max(SYMBOL, feature.size * half)];
  }

  function placesBeside(feature, panel, width) {
    const [x, y] = panel.symbolPlace(feature), [along, across] = reachOf(feature, panel);
    const right = x + along + GAP, left = x - along - GAP - width, middle = x - width / 2;
    return [
      [right, y - SYMBOL], [right, y + SYMBOL + CODE_SIZE], [left, y - SYMBOL], [left, y + SYMBOL + CODE_SIZE],
      [middle, y - across - GAP], [middle, y + across + GAP + CODE_SIZE],
    ];
  }

  function labelBeside(feature, panel, numbers, taken) {
    const code = codeOf(feature), numbersWidth = widthOf(numbers) + (numbers && code ? GAP : 0), width = numbersWidth + widthOf(code);
    const boxAt = ([x, y]) => ({ left: x, top: y - CODE_SIZE, right: x + width, bottom: y });
    const isFree = (box) => box.left >= panel.left - GAP && box.right <= panel.left + panel.width + GAP &&
      box.top >= panel.top - MARGIN && box.bottom <= panel.bottom + MARGIN && !taken.some((other) => covers(other, box));
    const places = placesBeside(feature, panel, width);
    const place = places.find((at) => isFree(boxAt(at))) || (numbers && panel.isTrue ? places[0] : null);
    if (!place) return null;
    taken.push(boxAt(place));
    return { x: place[0], y: place[1], numbers, codeX: place[0] + numbersWidth, code };
  }

  // By the position in `shown`. What has findings comes first to its place.
  function labelsBeside(member, panel, shown) {
    if (shown.length > MOST_LABELLED) return shown.map(() => null);
    const taken = [...shown, ...member.earlier].map((feature) => placeTaken(feature, panel)), labels = shown.map(() => null);
    const numbers = shown.map((feature) => numbersOf(member, feature));
    shown.forEach((feature, i) => { if (numbers[i]) labels[i] = labelBeside(feature, panel, numbers[i], taken); });
    shown.forEach((feature, i) => { if (!numbers[i] && codeOf(feature)) labels[i] = labelBeside(feature, panel, "", taken); });
    return labels;
  }

  // ---- shapes --------------------------------------------------------------------------------------------------

  const path = (style, d) => `<path class="${style}" d="${d}"/>`;
  const text = (x, y, style, content) => `<text x="${px(x)}" y="${px(y)}" class="${style}">${escaped(content)}</text>`;
  const through = (line, panel, face) => line.map(([x, y], i) => (i ? "L" : "M") + px(panel.x(x)) + " " + px(panel.y(face, y))).join("");

  function symbol(state, x, y) {
    const style = STATE_CLASSES[state];
    if (state === 2) return path(style, `M${px(x)} ${px(y - SYMBOL - 1)}l4.5 8h-9z`);
    if (state === 3) return path(style, `M${px(x - SYMBOL)} ${px(y - SYMBOL)}h7v7h-7z`);
    return `<circle class="${style}" cx="${px(x)}" cy="${px(y)}" r="${SYMBOL}"/>`;
  }

  function slotPath(slot, panel) {
    const angle = slot.angle * Math.PI / 180, cos = Math.cos(angle), sin = Math.sin(angle);
    const half = (slot.length - slot.size) / 2, radius = slot.size / 2;
    const corner = (along, across) =>
      px(panel.x(slot.x + cos * along - sin * across)) + " " + px(panel.y(slot.face, slot.y + sin * along + cos * across));
    const arc = `A${px(radius * panel.scaleX)} ${px(radius * panel.scaleX)} 0 0 0 `;
    return `M${corner(-half, -radius)}L${corner(half, -radius)}${arc}${corner(half, radius)}L${corner(-half, radius)}${arc}${corner(-half, -radius)}Z`;
  }

  function shapeOf(feature, panel) {
    const kind = KINDS[feature.kind], style = STATE_CLASSES[feature.state] + " " + kind;
    const x = panel.x(feature.x), y = panel.y(feature.face, feature.y);
    if (kind === "text") {
      const size = px(markedHeight(feature, panel));
      return `<text class="small" style="font-size:${size}px" x="${px(x)}" y="${px(y)}" transform="rotate(${px(-feature.angle)} ${px(x)} ${px(y)})">${escaped(feature.text)}</text>`;
    }
    if (kind === "mark")
      return path(style, feature.outline.length > 1 ? through(feature.outline, panel, feature.face) : `M${px(x - 3)} ${px(y)}h6M${px(x)} ${px(y - 3)}v6`);
    if (kind === "hole" || kind === "slot" || kind === "sink") {
      if (!panel.isTrue || feature.size * panel.scaleX < SMALLEST_SHAPE) return "";
      if (kind === "slot") return path(style, slotPath(feature, panel));
      return `<circle class="${style}" cx="${px(x)}" cy="${px(y)}" r="${px(feature.size / 2 * panel.scaleX)}"/>`;
    }
    if (kind === "cut") return path(style, through(feature.outline, panel, feature.face));
    if (feature.outline.length === 0) return "";
    return path(style + " area", through(feature.outline, panel, feature.face));
  }

  function sizeText(feature) {
    if (!feature.size) return "";
    return feature.length ? `${number(feature.length, 2)} x ${number(feature.size, 2)}` : number(feature.size, 2);
  }

  function tooltip(member, feature) {
    const size = sizeText(feature);
    let words = `${feature.shape}${size ? " " + size : ""}, ${member.faces[feature.face].name}, x ${number(feature.told[0], 2)}, y ${number(feature.told[1], 2)}`;
    if (feature.code) words += `, code ${feature.code}`;
    if (feature.line) words += `, line ${feature.line}`;
    if (feature.isEarlier) return `earlier: ${words}`;
    words += `: ${STATES[feature.state]}`;
    return feature.remark ? `${words} (${feature.remark})` : words;
  }

  // A finding lights up all features of its line.
  function isChosenBy(member, feature, chosen) {
    return chosen >= 0 && (feature.index === chosen || (feature.line > 0 && feature.line === member.features[chosen].line));
  }

  // An outline without a finding is what its face shows.
  const isShown = (feature) => KINDS[feature.kind] !== "outline" || feature.state >= 2;

  // Where a feature was in the earlier output.
  function earlierOf(member, feature, panel) {
    const x = panel.x(feature.x), y = panel.y(feature.face, feature.y), shape = shapeOf(feature, panel);
    return `<g class="earlier"><title>${escaped(tooltip(member, feature))}</title>${shape || symbol(0, x, y)}<path class="cross" d="M${px(x - 4)} ${px(y - 4)}l8 8M${px(x - 4)} ${px(y + 4)}l8 -8"/></g>`;
  }

  function featureOf(member, feature, panel, chosen, label) {
    const [x, y] = panel.symbolPlace(feature), shape = shapeOf(feature, panel);
    const isChosen = isChosenBy(member, feature, chosen), reach = Math.max(12, feature.size / 2 * panel.scaleX + 6);
    let svg = `<g class="feature${isChosen ? " chosen" : ""}" data-feature="${feature.index}"><title>${escaped(tooltip(member, feature))}</title>${shape}`;
    if (feature.state >= 2 || (!shape && KINDS[feature.kind] !== "sink")) svg += symbol(feature.state, x, y);
    if (isChosen) svg += `<circle class="ring" cx="${px(x)}" cy="${px(y)}" r="${px(panel.isTrue ? reach : 9)}"/>`;
    if (label && label.numbers) svg += text(label.x, label.y, "number", label.numbers);
    if (label && label.code) svg += text(label.codeX, label.y, "code", label.code);
    return `${svg}<circle class="hit" cx="${px(x)}" cy="${px(y)}" r="7"/></g>`;
  }

  function faceOf(member, face, panel) {
    const { width, outlines } = member.faces[face], length = member.length;
    const box = through([[0, 0], [length, 0], [length, width], [0, width], [0, 0]], panel, face);
    if (!outlines.length) return path("face", box);
    return path("missing", box) + outlines.map((outline) => path("face", through(outline, panel, face))).join("");
  }

  function panelOf(member, panel, id, chosen) {
    let svg = `<clipPath id="${id}"><rect x="${px(panel.left - 6)}" y="${px(panel.top - MARGIN)}" width="${px(panel.width + 12)}" height="${px(panel.bottom - panel.top + 2 * MARGIN)}"/></clipPath><g clip-path="url(#${id})">`;
    member.faces.forEach((_, face) => { svg += faceOf(member, face, panel); });
    const isWithin = (f) => {
      const reach = Math.max(f.size, f.length) / 2, x = Math.min(Math.max(f.x, 0), panel.end);
      return x + reach >= panel.from && x - reach <= panel.to;
    };
    const shown = member.features.filter((f) => isShown(f) && isWithin(f)), labels = labelsBeside(member, panel, shown);
    svg += member.earlier.filter(isWithin).map((feature) => earlierOf(member, feature, panel)).join("");
    // The chosen one lies above the others.
    const groups = shown.map((feature, i) => [feature.index === chosen, featureOf(member, feature, panel, chosen, labels[i])]);
    svg += groups.sort((a, b) => a[0] - b[0]).map(([, group]) => group).join("") + "</g>";
    for (const label of labelsOf(member, panel)) {
      const y = panel.bottom + 15 + 14 * label.row;
      svg += path("tick", `M${px(label.x)} ${px(panel.bottom + 2)}L${px(label.x)} ${px(y - 10)}`) + text(label.x, y, "small middle", label.text);
    }
    return svg;
  }

  function scaleText(panel) {
    const across = "1:" + number(PIXELS_PER_MM / panel.scaleY, 1);
    return panel.isTrue ? across : `length compressed 1:${number(PIXELS_PER_MM / panel.scaleX, 1)}, width ${across}`;
  }

  function namesOf(member, sheet, panel) {
    return member.faces.map((face, i) => {
      const width = number(face.width, 1) + (face.isUnrolled ? " unrolled" : "");
      if (sheet.isNarrow) return text(panel.left, panel.y(i, face.width) - 8, "", `${face.name} ${width}`);
      const x = panel.left - 12, y = panel.y(i, face.width / 2);
      return text(x, y, "end", face.name) + text(x, y + 13, "small end", width);
    }).join("");
  }

  // "34 features: 6 bottom flange, 16 web; 3 findings".
  function describe(member) {
    const counted = (n, noun) => `${n} ${noun}${n === 1 ? "" : "s"}`;
    const faces = member.faces.map((face, i) => [member.features.filter((f) => f.face === i).length, face.name]).filter(([n]) => n);
    return counted(member.features.length, "feature") + (faces.length ? ": " + faces.map(([n, name]) => `${n} ${name}`).join(", ") : "") +
      "; " + counted(member.findings.length, "finding");
  }

  function frameOf(sheet, overview, panel, i) {
    const name = String.fromCharCode(65 + i), left = overview.x(panel.from), right = overview.x(panel.to);
    const y = overview.top - (sheet.isNarrow ? 24 : 9);
    const letter = i === 0 ? text(left + 3, y, "small", name) : text(right - 3, y, "small end", name);
    return `<rect class="frame" x="${px(left)}" y="${px(overview.top - 6)}" width="${px(right - left)}" height="${px(overview.bottom - overview.top + 12)}"/>${letter}`;
  }

  function windowOf(member, sheet, panel, i, id, chosen) {
    const name = String.fromCharCode(65 + i);
    return text(panel.left, panel.top - 14 - (sheet.top - 40), "small", `${name}: ${number(panel.from, 0)} to ${number(panel.to, 0)} mm, ${scaleText(panel)}`) +
      panelOf(member, panel, id + name, chosen) + (i === 0 ? namesOf(member, sheet, panel) : "");
  }

  function svgElement(member, sheet, chosen, top, bottom, name, content) {
    return `<svg class="drawing${chosen >= 0 ? " has-chosen" : ""}" role="img" aria-label="${escaped(name)}" viewBox="0 ${px(top)} ${sheet.width} ${px(bottom - top)}">${content}</svg>`;
  }

  // A drawing `width` pixels wide. `chosen`: index of a feature, -1: none. A long member has at most `windows`
  // windows at true scale; one follows the chosen feature. `isSplit`: overview and windows as pictures of their own,
  // between which a page can end.
  function svgOf(member, { chosen = -1, width = 1000, height = 1, windows: most = 1, isSplit = false, id = "d" } = {}) {
    const sheet = sheetOf(width, height), overview = overviewOf(member, sheet);
    const windows = overview.isTrue ? [] : windowsOf(member, sheet, overview, chosen, most);
    const name = `${member.mark}: ${describe(member)}`, middle = overview.bottom + LABELS;
    const upper = text(width - sheet.right / 2, 16, "small end", scaleText(overview)) + namesOf(member, sheet, overview) +
      panelOf(member, overview, id + "o", chosen) + windows.map((panel, i) => frameOf(sheet, overview, panel, i)).join("");
    const lower = windows.map((panel, i) => windowOf(member, sheet, panel, i, id, chosen)).join("");
    const bottom = windows.length ? windows[0].bottom + LABELS : middle;
    if (!isSplit || !windows.length) return svgElement(member, sheet, chosen, 0, bottom, name, upper + lower);
    return svgElement(member, sheet, chosen, 0, middle, name, upper) + svgElement(member, sheet, chosen, middle, bottom, `${member.mark}, true scale`, lower);
  }

  return { svgOf, symbol, sizeText, tooltip, describe };
})();
