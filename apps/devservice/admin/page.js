'use strict';

const byId = id => document.getElementById(id);
const shownAtMost = 500;
const kept = new Map();  // event by row id, in the order of their last change
const expanded = new Set();
const filter = {text: '', path: '', duplicates: false};
let after = null;
let loaded = false;

// Received data enters the page as text, never as markup.
function element(tag, className, text) {
  const made = document.createElement(tag);
  if (className) made.className = className;
  if (text !== undefined) made.textContent = text;
  return made;
}

function timeText(milliseconds) {
  const date = new Date(milliseconds);
  const two = number => String(number).padStart(2, '0');
  return `${two(date.getHours())}:${two(date.getMinutes())}:${two(date.getSeconds())}` +
    `.${String(date.getMilliseconds()).padStart(3, '0')}`;
}

const dayAndTime = milliseconds => `${new Date(milliseconds).toLocaleDateString()}, ${timeText(milliseconds)}`;
const counted = (number, one, more) => `${number.toLocaleString()} ${number === 1 ? one : more}`;

// --- Events

function matches(event) {
  if (filter.path && event.path !== filter.path) return false;
  if (filter.duplicates && event.deliveries < 2) return false;
  return !filter.text || event.searchText.includes(filter.text);
}

function jsonView(values) {
  const view = element('pre');
  view.append('{');
  Object.entries(values).forEach(([key, value], index) => {
    view.append(index ? ',\n  ' : '\n  ', element('span', 'key', JSON.stringify(key)), ': ',
      element('span', 'value', JSON.stringify(value)));
  });
  view.append(Object.keys(values).length ? '\n}' : '}');
  return view;
}

function factList(pairs) {
  const list = element('dl', 'facts');
  for (const [name, value] of pairs) list.append(element('dt', '', name), element('dd', '', value));
  return list;
}

function detailView(event) {
  const detail = element('div', 'detail');
  const body = element('div');
  body.append(element('h3', '', 'Event'), jsonView(event.values));
  const side = element('div');
  side.append(element('h3', '', 'Delivery'), factList([
    ['App key', event.appKey],
    ['Deliveries', event.deliveries.toLocaleString()],
    ['First', dayAndTime(event.firstArrival)],
    ['Last', dayAndTime(event.lastArrival)],
  ]));
  const headers = Object.entries(event.headers);
  if (headers.length) side.append(element('h3', '', 'Headers'), factList(headers));
  detail.append(body, side);
  return detail;
}

function rowView(event) {
  const row = element('li', 'row');
  const button = element('button');
  button.type = 'button';
  const again = event.deliveries > 1;
  row.classList.toggle('again', again);
  const user = event.userId === null ? element('span', 'user none', 'no user') :
    element('span', 'user', event.userId);
  const path = element('span', 'where-path');
  path.append(element('span', event.path === '/events' ? 'badge events' : 'badge', event.path));
  const many = element('span', 'many');
  const badge = element('span', again ? 'badge again' : 'badge', again ? `×${event.deliveries}` : '1');
  badge.title = again ? `Delivered ${event.deliveries} times` : 'Delivered once';
  many.append(badge);
  const time = element('span', 'time', timeText(event.lastArrival));
  time.title = dayAndTime(event.lastArrival);
  button.append(time, element('span', 'name', event.eventName), user, path, many);
  const open = expanded.has(event.id);
  button.setAttribute('aria-expanded', open);
  button.addEventListener('click', () => toggle(event, row, button));
  row.addEventListener('animationend', () => row.classList.remove('fresh'));
  row.append(button);
  if (open) row.append(detailView(event));
  return row;
}

function toggle(event, row, button) {
  const open = !expanded.delete(event.id);
  if (open) expanded.add(event.id);
  button.setAttribute('aria-expanded', open);
  if (open) row.append(detailView(event));
  else row.querySelector('.detail').remove();
}

// Rows are reused, so that focus, scrolling and selected text survive an update.
function showEvents(fresh) {
  const list = byId('events');
  const matching = [...kept.values()].filter(matches).reverse();
  const wanted = matching.slice(0, shownAtMost);
  for (const event of wanted) {
    if (!event.row) {
      event.row = rowView(event);
      if (fresh) event.row.classList.add('fresh');
    }
  }
  const keep = new Set(wanted.map(event => event.row));
  for (const row of [...list.children]) if (!keep.has(row)) row.remove();
  let at = list.firstChild;
  for (const event of wanted) {
    if (event.row === at) at = at.nextSibling;
    else list.insertBefore(event.row, at);
  }
  byId('no-events').hidden = !loaded || kept.size > 0;
  byId('no-match').hidden = kept.size === 0 || wanted.length > 0;
  byId('shown').textContent = !kept.size ? '' :
    matching.length === kept.size && wanted.length === kept.size ? `Latest ${wanted.length.toLocaleString()}` :
      `${wanted.length.toLocaleString()} of the latest ${kept.size.toLocaleString()}`;
}

function takeEvents(events) {
  for (const event of events) {
    event.searchText = [event.eventName, event.userId, event.eventId, event.appKey, event.path,
      ...Object.entries(event.values).flat()].join('\n').toLowerCase();
    kept.delete(event.id);  // moves a redelivered event to the end
    kept.set(event.id, event);
  }
  for (const id of kept.keys()) {
    if (kept.size <= shownAtMost) break;
    kept.delete(id);
    expanded.delete(id);
  }
}

// --- Faults

function faultTitle(fault) {
  const titles = {
    status: `Status ${fault.status ?? 500}`, delay: `Late by ${fault.delay.toLocaleString()} ms`,
    drop: 'Connection dropped', truncate: 'Body cut short', hang: 'Never answered',
    body: `Other body, ${counted(fault.bodySize, 'byte', 'bytes')}`, redirect: 'Redirect',
  };
  return titles[fault.kind];
}

function faultView(fault) {
  const item = element('li');
  const where = `${fault.method || 'Any method'} on ${fault.path || 'any path'}`;
  const rest = fault.remaining === undefined ? 'until cleared' : `${fault.remaining} more`;
  const parts = [where, rest];
  if (fault.applied) parts.push(`met ${counted(fault.applied, 'time', 'times')}`);
  if (fault.delay && fault.kind !== 'delay' && fault.kind !== 'hang') parts.push(`after ${fault.delay} ms`);
  if (fault.carryOut) parts.push('carried out first');
  const side = element('span', 'side');
  const clear = element('button', 'plain', 'Clear');
  clear.type = 'button';
  clear.setAttribute('aria-label', `Clear: ${faultTitle(fault)}, ${where}`);
  clear.addEventListener('click', () => change('DELETE', `/admin/faults/${fault.id}`));
  side.append(clear);
  item.append(element('b', '', faultTitle(fault)), side, element('small', '', parts.join(' · ')));
  if (fault.location) item.append(element('small', '', `To ${fault.location}`));
  if (fault.waiting) {
    item.append(element('small', 'holding', `Holds ${counted(fault.waiting, 'request', 'requests')}`));
  }
  return item;
}

let shownFaults = '';
function showFaults(faults) {
  const text = JSON.stringify(faults);
  if (text === shownFaults) return;
  shownFaults = text;
  byId('faults').replaceChildren(...faults.map(faultView));
  byId('no-faults').hidden = faults.length > 0;
  byId('clear-faults').hidden = faults.length === 0;
}

function showFields() {
  const form = byId('fault-form');
  const kind = form.elements.kind.value;
  for (const field of form.querySelectorAll('[data-for]')) {
    field.hidden = !field.dataset.for.split(' ').includes(kind);
  }
  form.elements.status.placeholder = {status: '500', body: '200', redirect: '302'}[kind] ?? '';
}

function orderedFault(form) {
  const fault = {};
  for (const field of form.elements) {
    if (!field.name || field.closest('[hidden]')) continue;
    if (field.type === 'checkbox') { if (field.checked) fault[field.name] = true; continue; }
    if (field.value !== '') fault[field.name] = field.type === 'number' ? Number(field.value) : field.value;
  }
  return fault;
}

async function change(method, path, body) {
  const reply = await fetch(path, {method, body: body && JSON.stringify(body)});
  const answer = await reply.json();
  poll();
  return reply.ok ? null : answer.error;
}

async function submitFault(submission) {
  submission.preventDefault();
  const form = submission.target;
  const button = form.querySelector('.main');
  const problem = byId('fault-problem');
  button.disabled = true;
  let message = null;
  try {
    message = await change('POST', '/admin/faults', orderedFault(form));
  } catch {
    message = 'The service does not answer.';
  }
  button.disabled = false;
  problem.textContent = message ?? '';
  problem.hidden = message === null;
}

// --- Users and counts

const userName = user => user.userId === '' ? '(empty)' : user.userId;
const shortened = text => text.length > 80 ? `${text.slice(0, 80)}…` : text;

function userView(user) {
  const item = element('li');
  const side = element('span', 'side', counted(user.events, 'event', 'events'));
  const seen = user.lastSeen === null ? '' : ` · last seen ${timeText(user.lastSeen)}`;
  item.append(element('b', '', userName(user)), side,
    element('small', '', user.appKey + seen), walletRow(user), notifyRow(user));
  const {latest, count} = user.tokens;
  for (const token of latest) {
    const saves = token.saves > 1 ? `×${token.saves} ` : '';
    const row = element('small', 'mono token', `Token ${saves}${shortened(token.token)}`);
    row.title = `${token.token}\nlast saved ${dayAndTime(token.lastSaved)}`;
    item.append(row);
  }
  if (count > latest.length) {
    item.append(element('small', 'token', counted(count - latest.length, 'earlier token', 'earlier tokens')));
  }
  return item;
}

// A row of the list with a text and a button that opens a dialog about the user. The button's accessible name
// begins with its text.
function userRow(user, buttonText, buttonName, text, open) {
  const row = element('small', 'purse');
  const button = element('button', 'plain', buttonText);
  button.type = 'button';
  button.dataset.owner = ownerKey(user);
  button.setAttribute('aria-label', buttonName);
  button.addEventListener('click', () => open(user));
  row.append(element('span', '', text), button);
  return row;
}

const ownerKey = owner => JSON.stringify([owner.appKey, owner.userId]);
// The list is made anew at each change, so the focus finds its button by what the button is for.
const userButton = (key, name) => [...document.querySelectorAll('[data-owner]')]
  .find(each => each.dataset.owner === key && each.textContent === name);

let shownUsers = '';
function showUsers(users) {
  const text = JSON.stringify(users);
  if (text === shownUsers) return;
  shownUsers = text;
  const focused = document.activeElement;
  byId('users').replaceChildren(...users.map(userView));
  if (focused.dataset.owner) userButton(focused.dataset.owner, focused.textContent)?.focus();
  byId('no-users').hidden = users.length > 0;
}

function showCounts(counts) {
  const duplicates = counts.deliveries - counts.events;
  for (const [name, value] of Object.entries({...counts, duplicates})) {
    byId(`count-${name}`).textContent = value.toLocaleString();
  }
  byId('tile-duplicates').classList.toggle('some', duplicates > 0);
}

// --- Asking the service

function startOver() {
  kept.clear();
  expanded.clear();
  after = null;
}

function take(state) {
  // The service has another data folder now, or more new events than one reply holds.
  const restarted = after !== null && (state.next < after || state.more);
  if (restarted) { startOver(); return false; }
  const fresh = loaded && after !== null;
  loaded = true;
  after = state.next;
  takeEvents(state.events);
  if (state.events.length || !fresh) showEvents(fresh);
  showCounts(state.counts);
  showFaults(state.faults);
  showUsers(state.users);
  showWaiting(state.users);
  byId('scenario').textContent = state.scenario.split(/[\\/]/).filter(Boolean).pop() ?? '';
  byId('scenario').title = state.scenario;
  return true;
}

function showLink(live) {
  byId('link').className = live ? 'link live' : 'link lost';
  const text = live ? 'Live' : 'Not reachable';
  if (byId('link-text').textContent !== text) byId('link-text').textContent = text;
}

let timer = 0;
let asking = false;
let askAgain = false;
async function poll() {
  if (asking) { askAgain = true; return; }
  asking = true;
  clearTimeout(timer);
  const request = new AbortController();
  const timeout = setTimeout(() => request.abort(), 10000);
  let soon = false;
  try {
    const reply = await fetch(after === null ? '/admin/state' : `/admin/state?after=${after}`,
      {cache: 'no-store', signal: request.signal});
    soon = !take(await reply.json());
    await refreshWallet(request.signal);
    showLink(true);
  } catch {
    showLink(false);
  }
  clearTimeout(timeout);
  asking = false;
  soon ||= askAgain;
  askAgain = false;
  timer = setTimeout(poll, soon ? 0 : 1000);
}

const refilter = () => showEvents(false);

byId('address').textContent = location.origin;
byId('filter').addEventListener('input', event => {
  filter.text = event.target.value.trim().toLowerCase();
  refilter();
});
byId('only-duplicates').addEventListener('change', event => {
  filter.duplicates = event.target.checked;
  refilter();
});
const pathButtons = [...document.querySelectorAll('[data-path]')];
function choosePath(chosen) {
  filter.path = chosen.dataset.path;
  for (const button of pathButtons) button.setAttribute('aria-pressed', button === chosen);
  refilter();
}
for (const button of pathButtons) button.addEventListener('click', () => choosePath(button));
byId('reset').addEventListener('click', () => {
  byId('filter').value = filter.text = '';
  byId('only-duplicates').checked = filter.duplicates = false;
  choosePath(pathButtons[0]);
});
byId('fault-form').addEventListener('submit', submitFault);
byId('fault-form').elements.kind.addEventListener('change', showFields);
byId('clear-faults').addEventListener('click', () => change('DELETE', '/admin/faults'));
showFields();
poll();
