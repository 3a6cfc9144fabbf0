
// --- Wallets

let walletOwner = null;  // the user whose wallet is open; an object of its own for each opening of the dialog
let shownWallet = '';  // empty until the owner's wallet is shown

const walletForms = document.querySelectorAll('#wallet form');
const walletPath = owner => `/admin/wallet?${new URLSearchParams({app: owner.appKey, user: owner.userId})}`;

function walletText(wallet) {
  return [counted(wallet.points, 'point', 'points'), counted(wallet.tickets, 'ticket', 'tickets'),
    counted(wallet.usableVouchers, 'usable voucher', 'usable vouchers')].join(' · ');
}

// What a user's row in the list says of the wallet.
const walletRow = user =>
  userRow(user, 'Wallet', `Wallet of ${userName(user)}`, user.wallet ? walletText(user.wallet) : 'No wallet yet',
    openWallet);

function voucherView(voucher) {
  const item = element('li');
  item.append(element('b', '', voucher.title), element('span', `badge ${voucher.state}`, voucher.state),
    element('small', '', `${voucher.tag_text} · until ${voucher.date}`));
  return item;
}

function movementView(movement, unit) {
  const item = element('li');
  const amount = `${movement.point_amount > 0 ? '+' : ''}${movement.point_amount.toLocaleString()}${unit}`;
  item.append(element('b', '', movement.title),
    element('span', movement.point_amount < 0 ? 'side amount' : 'side amount more', amount),
    element('small', '', [movement.description, movement.date].filter(Boolean).join(' · ')));
  return item;
}

function showWallet(wallet) {
  const text = JSON.stringify(wallet);
  if (text === shownWallet) return;
  if (shownWallet === '') {
    tellOfWallet();
    enableForms(true);
  }
  shownWallet = text;
  byId('wallet-points').textContent = wallet.points.toLocaleString() + wallet.unit;
  byId('wallet-tickets').textContent = wallet.tickets.toLocaleString();
  byId('wallet-usable').textContent = wallet.usableVouchers.toLocaleString();
  byId('wallet-vouchers').replaceChildren(...wallet.vouchers.map(voucherView));
  byId('wallet-no-vouchers').hidden = wallet.vouchers.length > 0;
  byId('wallet-history').replaceChildren(...wallet.history.map(each => movementView(each, wallet.unit)));
  byId('wallet-no-history').hidden = wallet.history.length > 0;
  byId('wallet-shown').textContent = wallet.history.length < wallet.historySize ?
    `Latest ${wallet.history.length} of ${wallet.historySize.toLocaleString()}` : '';
}

// Nothing of the previous user's wallet may stand under the new user's name.
function showNoWallet() {
  shownWallet = '';
  for (const name of ['points', 'tickets', 'usable']) byId(`wallet-${name}`).textContent = '–';
  for (const name of ['vouchers', 'history']) {
    byId(`wallet-${name}`).replaceChildren();
    byId(`wallet-no-${name}`).hidden = true;
  }
  byId('wallet-shown').textContent = '';
  enableForms(false);
}

function enableForms(enabled) {
  for (const form of walletForms) for (const field of form.elements) field.disabled = !enabled;
}

async function refreshWallet(signal) {
  const owner = walletOwner;
  if (owner === null) return;
  const reply = await fetch(walletPath(owner), {cache: 'no-store', signal});
  const answer = await reply.json();
  if (owner !== walletOwner) return;
  if (reply.ok) showWallet(answer);
  else tellOfWallet(answer.error);
}

function tellOfWallet(problem, done) {
  byId('wallet-problem').textContent = problem ?? '';
  byId('wallet-problem').hidden = !problem;
  byId('wallet-done').textContent = done ?? '';
}

const notReached = 'The service does not answer.';

function openWallet(owner) {
  walletOwner = {...owner};
  showNoWallet();
  tellOfWallet();
  byId('wallet-user').textContent = owner.userId === '' ? '(empty)' : owner.userId;
  byId('wallet-app').textContent = owner.appKey;
  for (const form of walletForms) form.reset();
  byId('wallet').showModal();
  const opened = walletOwner;
  refreshWallet().catch(() => { if (opened === walletOwner) tellOfWallet(notReached); });
}

// What each form asks for. The service checks all values.
const wantedBy = {
  points: fields => ({points: Number(fields.points.value), title: fields.title.value,
    description: fields.description.value}),
  tickets: fields => ({tickets: Number(fields.tickets.value)}),
  voucher: fields => ({vouchers: [{title: fields.title.value, tag_text: fields.tag.value,
    date: fields.date.value && `${fields.date.value}T23:59:59Z`, state: fields.state.value}]}),
};

async function submitWallet(submission) {
  submission.preventDefault();
  const form = submission.target;
  const button = form.querySelector('.main');
  const owner = walletOwner;
  button.disabled = true;
  let problem = null;
  try {
    problem = await change('POST', walletPath(owner), wantedBy[form.dataset.wallet](form.elements));
    if (owner === walletOwner) await refreshWallet();
  } catch {
    problem = notReached;
  }
  // Meanwhile the dialog may have been opened for another user, who has nothing to do with this change.
  if (owner !== walletOwner) return;
  if (problem === null) form.reset();
  tellOfWallet(problem, problem === null ? 'The wallet has changed.' : '');
  button.disabled = false;
}

for (const form of walletForms) form.addEventListener('submit', submitWallet);
byId('wallet-close').addEventListener('click', () => byId('wallet').close());
byId('wallet').addEventListener('close', () => {
  // The list may have been made anew since, so the browser cannot give the focus back.
  userButton(ownerKey(walletOwner), 'Wallet')?.focus();
  walletOwner = null;
});
