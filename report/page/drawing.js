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
    index, isEarlier: false, kind: f[0] || 0, state: f[1] || 0, face: f[2] || 0, line: f[3] || 0, x: f[4] || 0, y: f[5] || 0, size: f[6] || 0,
    shape: texts[f[7] || 0], code: texts[f[8] || 0], length: f[9] || 0, angle: f[10] || 0,
    told: f[11] || [f[4] || 0, f[5] || 0], remark: texts[f[12] || 0], outline: points(f[13] || []), text: texts[f[14] || 0],
  });
  const finding = (f) => ({ state: f[0], text: f[1], line: f[2] || 0 });
  return {
    mark: raw[0], profile: texts[raw[1]], length: raw[2], quantity: raw[3], group: texts[raw[4]], state: raw[5],
    isNonStandard: raw[6] === 1, file: raw[7], accounts: texts[raw[8]],
    findings: raw[9].map(finding), faces: raw[10].map(face), features: raw[11].map(feature),
    changes: raw[12] || [], earlier: (raw[13] || []).map((f) => ({ ...feature(f, -1), isEarlier: true })),
  };
}

const Drawing = (() => {
  const WIDTH = 1000, LEFT = 112, RIGHT = 24, TOP = 40, FACE_GAP = 16, WINDOW_GAP = 44, LABELS = 34;
  const FACES_HEIGHT = 240, TRUE_HEIGHT = 420, WINDOW_HEIGHT = 330, LONGEST_TRUE = 10;
  const SYMBOL = 3.5, SMALLEST_SHAPE = 5, DIGIT = 0.56 * 11, LABEL_GAP = 6, PIXELS_PER_MM = 96 / 25.4;

  const px = (value) => number(value, 2);
  const sum = (faces) => Math.max(1, faces.reduce((all, face) => all + face.width, 0));

  function stacked(panel, member) {
    let y = panel.top;
    panel.zeros = [];
    for (let face = member.faces.length - 1; face >= 0; --face) {
      y += member.faces[face].width * panel.scaleY;
      panel.zeros[face] = y;
      y += FACE_GAP;
    }
    panel.bottom = y - FACE_GAP;
    panel.isTrue = panel.scaleX === panel.scaleY;
    panel.x = (x) => panel.left + (x - panel.from) * panel.scaleX;
    panel.y = (face, y) => panel.zeros[face] - y * panel.scaleY;
    return panel;
  }

  function overviewOf(member) {
    const width = WIDTH - LEFT - RIGHT, length = Math.max(member.length, 1);
    const widest = Math.max(1, ...member.faces.map((face) => face.width));
    const panel = { left: LEFT, width, top: TOP, from: 0, to: length, scaleX: width / length, scaleY: FACES_HEIGHT / sum(member.faces) };
    if (length <= LONGEST_TRUE * widest) panel.scaleX = panel.scaleY = Math.min(panel.scaleX, TRUE_HEIGHT / sum(member.faces));
    return stacked(panel, member);
  }

  function windowsOf(member, overview, places) {
    const panels = [];
    for (const place of places) {
      const width = places.length === 1 ? overview.width : (overview.width - WINDOW_GAP) / 2;
      const scale = WINDOW_HEIGHT / sum(member.faces), shown = width / scale;
      const from = Math.floor(Math.min(Math.max(place - shown / 2, 0), Math.max(member.length - shown, 0)));
      const left = panels.length === 0 ? overview.left : overview.left + width + WINDOW_GAP;
      if (panels.length === 0 || from > panels[0].from)
        panels.push(stacked({ left, width, top: overview.bottom + LABELS + 30, from, to: from + shown, scaleX: scale, scaleY: scale }, member));
    }
    return panels;
  }

  // The first and the last feature with a finding, else with a change, else both ends.
  function placesOfInterest(member) {
    const faulty = member.features.filter((f) => f.state >= 2), xs = (faulty.length ? faulty : member.earlier).map((f) => f.x);
    return xs.length ? [Math.min(...xs), Math.max(...xs)] : [0, member.length];
  }

  function labelsOf(member, panel) {
    const places = [0, member.length, ...member.features.filter((f) => f.state !== 0).map((f) => f.x)]
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
      const size = px(Math.min(Math.max(feature.size * panel.scaleY, 7), 14));
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

  function numbersOf(member, feature) {
    if (!feature.line) return "";
    return member.findings.flatMap((finding, i) => (finding.line === feature.line ? [i + 1] : [])).join(", ");
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

  function featureOf(member, feature, panel, chosen) {
    const x = panel.x(feature.x), y = panel.y(feature.face, feature.y), shape = shapeOf(feature, panel);
    const isChosen = isChosenBy(member, feature, chosen), reach = Math.max(12, feature.size / 2 * panel.scaleX + 6);
    let svg = `<g class="feature${isChosen ? " chosen" : ""}" data-feature="${feature.index}"><title>${escaped(tooltip(member, feature))}</title>${shape}`;
    if (feature.state >= 2 || (!shape && KINDS[feature.kind] !== "sink")) svg += symbol(feature.state, x, y);
    if (isChosen) svg += `<circle class="ring" cx="${px(x)}" cy="${px(y)}" r="${px(panel.isTrue ? reach : 9)}"/>`;
    const numbers = numbersOf(member, feature);
    if (numbers) svg += text(x + SYMBOL + 3, y - SYMBOL, "number", numbers);
    return `${svg}<circle class="hit" cx="${px(x)}" cy="${px(y)}" r="7"/></g>`;
  }

  function faceOf(member, face, panel) {
    const { width, outlines } = member.faces[face], length = member.length;
    const box = through([[0, 0], [length, 0], [length, width], [0, width], [0, 0]], panel, face);
    if (!outlines.length) return path("face", box);
    return path("missing", box) + outlines.map((outline) => path("face", through(outline, panel, face))).join("");
  }

  function panelOf(member, panel, id, chosen) {
    let svg = `<clipPath id="${id}"><rect x="${px(panel.left - 6)}" y="${px(panel.top - 10)}" width="${px(panel.width + 12)}" height="${px(panel.bottom - panel.top + 20)}"/></clipPath><g clip-path="url(#${id})">`;
    member.faces.forEach((_, face) => { svg += faceOf(member, face, panel); });
    const isWithin = (f) => f.x + Math.max(f.size, f.length) / 2 >= panel.from && f.x - Math.max(f.size, f.length) / 2 <= panel.to;
    // The chosen one lies above the others.
    const shown = member.features.filter((f) => isShown(f) && isWithin(f)).sort((a, b) => (a.index === chosen) - (b.index === chosen));
    svg += member.earlier.filter(isWithin).map((feature) => earlierOf(member, feature, panel)).join("");
    svg += shown.map((feature) => featureOf(member, feature, panel, chosen)).join("") + "</g>";
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

  function namesOf(member, panel) {
    return member.faces.map((face, i) => {
      const x = panel.left - 12, y = panel.y(i, face.width / 2);
      return text(x, y, "end", face.name) + text(x, y + 13, "small end", number(face.width, 1) + (face.isUnrolled ? " unrolled" : ""));
    }).join("");
  }

  // "34 features: 6 bottom flange, 16 web; 3 findings".
  function describe(member) {
    const counted = (n, noun) => `${n} ${noun}${n === 1 ? "" : "s"}`;
    const faces = member.faces.map((face, i) => [member.features.filter((f) => f.face === i).length, face.name]).filter(([n]) => n);
    return counted(member.features.length, "feature") + (faces.length ? ": " + faces.map(([n, name]) => `${n} ${name}`).join(", ") : "") +
      "; " + counted(member.findings.length, "finding");
  }

  // `chosen`: index of a feature, -1: none. A long member has one window, which follows the chosen feature; on
  // paper, where nothing can be chosen, two.
  function svgOf(member, chosen = -1, isPaper = false, id = "d") {
    const overview = overviewOf(member), places = placesOfInterest(member);
    const at = chosen >= 0 ? [member.features[chosen].x] : isPaper ? places : [places[0]];
    const windows = overview.isTrue ? [] : windowsOf(member, overview, at);
    const height = (windows.length ? windows[0] : overview).bottom + LABELS;
    let svg = text(WIDTH - 12, 22, "small end", scaleText(overview)) + namesOf(member, overview) + panelOf(member, overview, id + "o", chosen);
    windows.forEach((panel, i) => {
      const name = String.fromCharCode(65 + i), left = overview.x(panel.from), right = overview.x(panel.to);
      svg += `<rect class="frame" x="${px(left)}" y="${px(overview.top - 6)}" width="${px(right - left)}" height="${px(overview.bottom - overview.top + 12)}"/>` +
        text(left + 3, overview.top - 9, "small", name) +
        text(panel.left, panel.top - 14, "small", `${name}: ${number(panel.from, 0)} to ${number(panel.to, 0)} mm, ${scaleText(panel)}`) +
        panelOf(member, panel, id + name, chosen);
      if (i === 0) svg += namesOf(member, panel);
    });
    return `<svg class="drawing${chosen >= 0 ? " has-chosen" : ""}" role="img" aria-label="${escaped(member.mark + ": " + describe(member))}" viewBox="0 0 ${WIDTH} ${px(height)}">${svg}</svg>`;
  }

  return { svgOf, symbol, sizeText, tooltip, describe };
})();
