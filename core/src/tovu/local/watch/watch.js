// Shows what comes over /events. Names are the federates' own: they become text, never markup.
'use strict';

const KEPT = 300;
const COLOURS = 7;
const DASHES = ['', '9 4', '2 4', '12 4 2 4', '5 3', '14 5']; // not as many as colours, so that no pair comes twice
const SVG = 'http://www.w3.org/2000/svg';
const byId = id => document.getElementById(id);

let samples = []; // of the past: wall-clock time, and of each federation rates and its federates' times
let state = null;
let chosen = null; // the name of the federation that is shown
let pointedAt = null; // the handle of the federate whose row or curve that is
let span = 60;

// ---- elements

function element(tag, attributes, ...children) {
  const made = document.createElement(tag);
  for (const [name, value] of Object.entries(attributes || {})) {
    made.setAttribute(name, value);
  }
  made.append(...children); // a text is appended as a text
  return made;
}

function shape(tag, attributes, text) {
  const made = document.createElementNS(SVG, tag);
  for (const [name, value] of Object.entries(attributes)) {
    made.setAttribute(name, value);
  }
  if (text !== undefined) {
    made.textContent = text;
  }
  return made;
}

function setText(node, text) {
  if (node.textContent !== text) {
    node.textContent = text;
  }
}

// A table whose rows stay what they are while their contents change: nothing that is selected or read jumps away.
function fillTable(id, columns, rows, none) {
  const table = byId(id);
  if (!table.tHead) {
    const head = table.createTHead().insertRow();
    table.tHead.setAttribute('role', 'rowgroup');
    head.setAttribute('role', 'row');
    columns.forEach(([title, , number]) =>
      head.append(element('th', {scope: 'col', role: 'columnheader', class: number ? 'number' : ''}, title)));
    table.createTBody().setAttribute('role', 'rowgroup');
  }
  const body = table.tBodies[0];
  const known = new Map(Array.from(body.rows, row => [row.dataset.key, row]));
  const wanted = rows.map(row => {
    const key = String(row.key);
    let line = known.get(key);
    if (!line) {
      line = element('tr', {role: 'row', 'data-key': key}, ...columns.map(([title, , number, kind]) =>
        element('td', {role: 'cell', 'data-label': title, class: (number ? 'number ' : '') + (kind || '')})));
    }
    columns.forEach(([, value], i) => {
      const content = value(row);
      if (content instanceof Node) {
        if (!line.cells[i].firstChild || !line.cells[i].firstChild.isEqualNode(content)) {
          line.cells[i].replaceChildren(content);
        }
      } else {
        setText(line.cells[i], content);
      }
    });
    line.className = row.mark || '';
    return line;
  });
  if (!wanted.length) {
    wanted.push(known.get('none') || element('tr', {role: 'row', 'data-key': 'none'},
      element('td', {role: 'cell', class: 'note', colspan: columns.length}, none)));
  }
  if (wanted.length !== body.rows.length || wanted.some((line, i) => body.rows[i] !== line)) {
    body.replaceChildren(...wanted);
  }
}

// ---- words

const number = value => value === null || value === undefined ? '–'
  : value.toLocaleString('en', {maximumSignificantDigits: Math.abs(value) < 1000 ? 4 : 15, maximumFractionDigits: 3});
const rate = value => value === 0 ? '0' : number(value < 10 ? Math.round(value * 10) / 10 : Math.round(value));
const clock = time => new Date(time).toLocaleTimeString('en-GB');
const moment = time => new Date(time).toLocaleString('sv');
const shortName = name => name.replace(/^HLA(object|interaction)Root\./, '');

function seconds(value) {
  const whole = Math.round(value);
  return whole < 120 ? whole + ' s' : whole < 7200 ? Math.floor(whole / 60) + ' min' : Math.floor(whole / 3600) + ' h';
}

function stateOf(federate) {
  if (federate.state === 'granted') {
    return federate.regulating || federate.constrained ? 'granted for ' + seconds(federate.secondsInState) : 'no time management';
  }
  return federate.state + ' to ' + number(federate.requested) + ' for ' + seconds(federate.secondsInState)
    + (federate.waitsFor === null ? '' : ', waits for ' + federate.waitsFor);
}

const managed = federate => federate.regulating || federate.constrained;
const management = federate => [federate.regulating ? 'regulating' : '', federate.constrained ? 'constrained' : '']
  .filter(each => each).join(', ') || '–';

// ---- charts

const strokeOf = (index, made) => Object.assign(made, {stroke: `var(--c${index % COLOURS})`,
  'stroke-dasharray': DASHES[index % DASHES.length]});

function swatch(index) {
  const made = shape('svg', {class: 'swatch', viewBox: '0 0 36 12', 'aria-hidden': 'true'});
  made.append(shape('path', strokeOf(index, {d: 'M0 6H36', 'stroke-width': 3, fill: 'none'})));
  return made;
}

// The steps of an axis: 1, 2 or 5 times a power of ten.
function steps(least, greatest, wanted) {
  const rough = (greatest - least) / wanted;
  const power = Math.pow(10, Math.floor(Math.log10(rough)));
  const step = power * [1, 2, 5, 10].find(each => each * power >= rough);
  const all = [];
  for (let i = Math.ceil(least / step); i * step <= greatest + step * 1e-9; ++i) {
    all.push(i * step);
  }
  return all;
}

// curves: [{name, index, key, points: [[wall-clock ms, value]]}]
function draw(id, curves, now, fromZero) {
  const svg = byId(id);
  const width = svg.clientWidth;
  const height = svg.clientHeight;
  if (!width) {
    return;
  }
  const right = Math.min(150, Math.max(106, width * 0.26));
  const box = {left: 56, top: 12, right: width - right, bottom: height - 26};
  const begin = now - span * 1000;
  const values = curves.flatMap(curve => curve.points.filter(point => point[0] >= begin).map(point => point[1]));
  let least = fromZero ? 0 : Math.min(...values);
  let greatest = Math.max(...values);
  if (!values.length) {
    least = 0;
    greatest = 1;
  } else if (greatest - least < 1e-12) {
    greatest = least + (fromZero ? 1 : Math.max(1, Math.abs(least) * 0.01));
  }
  const ticks = steps(least, greatest, height / 55);
  const step = ticks.length > 1 ? ticks[1] - ticks[0] : greatest - least;
  least = fromZero ? 0 : Math.floor(least / step) * step;
  greatest = Math.ceil(greatest / step) * step;
  const x = time => box.left + (time - begin) / (now - begin) * (box.right - box.left);
  const y = value => box.bottom - (value - least) / (greatest - least) * (box.bottom - box.top);
  const parts = [];
  for (let tick = least; tick <= greatest + step / 2; tick += step) {
    parts.push(shape('line', {class: 'grid', x1: box.left, x2: box.right, y1: y(tick), y2: y(tick)}));
    parts.push(shape('text', {x: box.left - 8, y: y(tick) + 4, 'text-anchor': 'end'}, number(tick)));
  }
  const period = span * 1000 / (width < 500 ? 2 : 4);
  for (let tick = Math.ceil(begin / period) * period; tick <= now; tick += period) {
    parts.push(shape('line', {class: 'grid', x1: x(tick), x2: x(tick), y1: box.top, y2: box.bottom}));
    if (x(tick) > box.left + 20 && x(tick) < box.right - 10) {
      parts.push(shape('text', {x: x(tick), y: height - 7, 'text-anchor': 'middle'}, clock(tick)));
    }
  }
  const labels = [];
  for (const curve of curves) {
    let path = '';
    for (const [time, value] of curve.points) {
      if (time >= begin) {
        path += (path ? 'L' : 'M') + x(time).toFixed(1) + ' ' + y(value).toFixed(1);
      }
    }
    const last = curve.points[curve.points.length - 1];
    if (!path || last[0] < begin) {
      continue;
    }
    const dim = pointedAt !== null && curve.key !== undefined && curve.key !== pointedAt ? ' dim' : '';
    parts.push(shape('path', strokeOf(curve.index, {class: 'curve' + dim, d: path})));
    labels.push({y: y(last[1]), from: y(last[1]), at: x(last[0]), curve});
  }
  place(labels, box);
  for (const label of labels) {
    const colour = `var(--c${label.curve.index % COLOURS})`;
    parts.push(shape('circle', {class: 'end', cx: label.at, cy: label.from, r: 3.5, fill: colour}));
    if (label.at > box.right - 5 && !label.hidden) {
      parts.push(shape('path', {d: `M${label.at + 5} ${label.from}L${box.right + 18} ${label.y}`, stroke: colour, fill: 'none', opacity: .5}));
      parts.push(shape('text', {class: label.curve.holds ? 'label holds' : 'label', x: box.right + 22, y: label.y + 4},
        fitting((label.curve.holds ? '▲ ' : '') + label.curve.name, right - 26)));
    }
  }
  svg.replaceChildren(...parts);
}

// Labels stand one below the other, as near to the ends of their curves as that lets them.
function place(labels, box) {
  const apart = 16;
  labels.sort((one, other) => one.y - other.y);
  const room = Math.floor((box.bottom - box.top) / apart) + 1;
  if (labels.length > room) { // the slowest are of interest
    labels.slice(0, labels.length - room).forEach(label => { label.hidden = true; });
  }
  const shown = labels.filter(label => !label.hidden);
  shown.forEach((label, i) => {
    label.y = i ? Math.max(label.y, shown[i - 1].y + apart) : Math.max(label.y, box.top);
  });
  for (let i = shown.length - 1, limit = box.bottom; i >= 0; --i, limit = shown[i + 1].y - apart) {
    shown[i].y = Math.min(shown[i].y, limit);
  }
}

function fitting(name, width) {
  const units = Math.max(3, Math.floor(width / 7.9));
  const all = Array.from(name);
  return all.length <= units ? name : all.slice(0, units - 1).join('') + '…';
}

// The names of those that others wait for and that wait for nobody.
function holders(federation) {
  const awaited = new Set(federation.federates.filter(each => each.secondsInState >= 1).map(each => each.waitsFor));
  return new Set(federation.federates.filter(each => awaited.has(each.name) && each.waitsFor === null).map(each => each.name));
}

function drawCharts(federation) {
  const now = Date.parse(state.time);
  const past = samples.map(sample => [sample.at, sample.federations.find(each => each.name === federation.name)])
    .filter(([, each]) => each);
  const curves = federation.federates.map(federate => ({federate, name: federate.name, index: federate.handle - 1,
    key: federate.handle, holds: holders(federation).has(federate.name)}))
    .filter(curve => managed(curve.federate));
  for (const curve of curves) {
    curve.points = past.map(([at, each]) => [at, each.times.get(curve.key)])
      .filter(([, time]) => time !== undefined && time !== null);
  }
  draw('times', curves.filter(curve => curve.points.length), now, false);
  setText(byId('times-text'), curves.length ? 'Logical times now: '
    + curves.map(curve => curve.name + ' ' + number(curve.federate.time)).join(', ') : 'No federate manages time.');
  draw('rates', [['updates', 'updatesPerSecond', 0], ['interactions', 'interactionsPerSecond', 1]].map(([name, field, index]) =>
    ({name, index, points: past.map(([at, each]) => [at, each[field]])})), now, true);
  setText(byId('rates-text'), 'Now ' + rate(federation.updatesPerSecond) + ' updates and '
    + rate(federation.interactionsPerSecond) + ' interactions a second.');
}

// ---- the page

function show() {
  const names = state.federations.map(each => each.name);
  if (!names.includes(chosen)) {
    chosen = names.length ? names[0] : null;
  }
  const buttons = byId('federations');
  if (Array.from(buttons.children, each => each.textContent).join('\n') !== names.join('\n')) {
    buttons.replaceChildren(...names.map(name => {
      const button = element('button', {type: 'button'}, name);
      button.addEventListener('click', () => { chosen = name; show(); });
      return element('li', {}, button);
    }));
  }
  Array.from(buttons.children, each => each.firstChild).forEach((button, i) =>
    button.setAttribute('aria-pressed', String(names[i] === chosen)));
  const federation = state.federations.find(each => each.name === chosen);
  byId('none').hidden = Boolean(federation);
  byId('shown').hidden = !federation;
  if (federation) {
    showFederation(federation);
  }
  byId('cluster').hidden = !state.cluster;
  if (state.cluster) {
    showCluster(state.cluster);
  }
  document.title = federation ? (federation.waits.length ? '▲ ' : '') + federation.name : 'Federations';
  fillTable('events', [
    ['When', row => clock(row.time), false, 'when'],
    ['What', row => element('span', {class: 'kind ' + row.event}, row.event.replace('_', ' '))],
    ['Who', row => row.who, false, 'name'],
    ['Federation', row => row.federation],
    ['Why', row => row.why, false, 'why'],
  ], state.events.slice(-50).reverse().map(each => ({...each, key: each.number})), 'Nobody has come or gone.');
}

function showCluster(cluster) {
  setText(byId('cluster-text'), cluster.reachable ? 'This page is of hub ' + cluster.hub + '.'
    : 'ZooKeeper cannot be reached: this is how the cluster was. This page is of hub ' + cluster.hub + '.');
  byId('cluster-text').classList.toggle('bad', !cluster.reachable);
  fillTable('hubs', [
    ['Hub', row => row.name, false, 'name'],
    ['Address', row => row.address],
    ['Load', row => number(row.load), true],
    ['Version', row => row.version],
    ['Since', row => moment(row.since), false, 'when'],
  ], cluster.hubs.map(each => ({...each, key: each.name + each.since})), 'No hub lives.');
  fillTable('places', [
    ['Federation', row => row.name, false, 'name'],
    ['Hub', row => row.hub + (row.lost ? ' (lost)' : '')],
    ['Epoch', row => number(row.epoch), true],
    ['Since', row => moment(row.since), false, 'when'],
    ['Taken over from', row => row.from || '–'],
  ], cluster.federations.map(each => ({...each, key: each.name, mark: each.lost ? 'held-up' : ''})),
  'There is no federation.');
}

function showFederation(federation) {
  const waits = federation.waits.length ? federation.waits
    : [federation.federates.some(managed) ? 'Nobody is held up' : 'No federate manages time: nobody waits for another'];
  byId('answer').classList.toggle('held', federation.waits.length > 0);
  if (Array.from(byId('waits').children, each => each.textContent).join('\n') !== waits.join('\n')) {
    byId('waits').replaceChildren(...waits.map(each => element('li', {}, each)));
  }
  const news = waits.map(each => each.replace(/ for \d+ s$| \d+ s ago/, '')).join('. '); // not read out every second
  setText(byId('waits-text'), news);
  drawCharts(federation);
  const holding = holders(federation);
  fillTable('federates', [
    ['Federate', row => {
      const made = element('span', {class: 'name'});
      made.append(swatch(row.index), row.name);
      return made;
    }],
    ['Type', row => row.type],
    ['Handle', row => String(row.handle), true],
    ['Time management', management],
    ['Lookahead', row => number(row.lookahead), true],
    ['Time', row => number(row.time), true],
    ['GALT', row => number(row.galt), true],
    ['State', stateOf],
    ['Queue', row => number(row.receiveQueue + row.timestampQueue), true],
    ['Updates sent', row => number(row.updatesSent), true],
    ['Interactions sent', row => number(row.interactionsSent), true],
    ['Silent for', row => seconds(row.silentSeconds), true],
  ], federation.federates.map(each => ({...each, index: each.handle - 1, key: each.handle, mark:
    (each.waitsFor !== null && each.secondsInState >= 1 ? 'held-up ' : '')
    + (holding.has(each.name) ? 'holder' : '')})), 'Nobody is joined.');
  fillTable('objects', [
    ['Class', row => shortName(row.name), false, 'name'],
    ['Objects', row => number(row.objects), true],
    ['Updates', row => number(row.updates), true],
    ['a second', row => rate(row.updatesPerSecond), true],
  ], federation.objectClasses.map(each => ({...each, key: each.name})), 'No object is registered.');
  fillTable('interactions', [
    ['Class', row => shortName(row.name), false, 'name'],
    ['Interactions', row => number(row.interactions), true],
    ['a second', row => rate(row.interactionsPerSecond), true],
  ], federation.interactionClasses.map(each => ({...each, key: each.name})), 'None was sent.');
  fillTable('points', [
    ['Label', row => row.label, false, 'name'],
    ['Achieved by', row => row.achieved.join(', ') || '–'],
    ['Waits for', row => row.awaited.join(', ') || '–'],
  ], federation.synchronizationPoints.map(each => ({...each, key: each.label})), 'None is to be achieved.');
  const {save, restore} = federation;
  const at = time => time === null ? '' : ' at time ' + number(time);
  const lines = [['Last', save.last ? save.last + at(save.lastTime) : 'none'],
    ['Next', save.next ? save.next + at(save.nextTime) : 'none'],
    ['In progress', save.inProgress ? 'save ' + save.inProgress : restore.inProgress ? 'restore ' + restore.inProgress : 'none'],
    ['Waits for', [...save.awaited, ...restore.awaited].join(', ') || '–']];
  byId('saves').replaceChildren(...lines.flatMap(([what, text]) => [element('dt', {}, what), element('dd', {}, text)]));
}

// ---- what comes

function remember(sample) {
  samples.push({at: Date.parse(sample.time), federations: sample.federations.map(each => ({
    name: each.name, updatesPerSecond: each.updatesPerSecond, interactionsPerSecond: each.interactionsPerSecond,
    times: new Map(each.federates.map(federate => [federate.handle, federate.time]))}))});
  samples = samples.slice(-KEPT);
}

function linked(on, text) {
  document.body.classList.toggle('live', on);
  document.body.classList.toggle('lost', !on);
  setText(byId('link-text'), text);
}

const events = new EventSource('events');
events.addEventListener('history', event => {
  samples = [];
  JSON.parse(event.data).samples.slice(0, -1).forEach(remember); // the last one comes as the state
});
events.addEventListener('state', event => {
  state = JSON.parse(event.data);
  remember(state);
  linked(true, 'Live');
  setText(byId('clock'), clock(state.time));
  show();
});
events.addEventListener('error', () => {
  linked(false, state ? 'No connection: this is how it was at' : 'No connection');
});

byId('federates').addEventListener('pointerover', event => point(event.target.closest('tbody tr')));
byId('federates').addEventListener('pointerleave', () => point(null));

function point(row) {
  const handle = row && row.dataset.key !== 'none' ? Number(row.dataset.key) : null;
  if (handle !== pointedAt && state) {
    pointedAt = handle;
    drawCharts(state.federations.find(each => each.name === chosen));
  }
}

document.querySelectorAll('[data-span]').forEach(button => button.addEventListener('click', () => {
  span = Number(button.dataset.span);
  document.querySelectorAll('[data-span]').forEach(each => each.setAttribute('aria-pressed', String(each === button)));
  show();
}));
new ResizeObserver(() => state && show()).observe(document.body);
