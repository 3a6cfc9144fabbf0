
// --- Notifications

const alertOf = (title, body) => ({aps: {alert: {title, body}}});
const presets = {
  campaign: {...alertOf('행운의 룰렛', '오늘의 기회가 남아 있어요'), Orrelo: true, campaignId: 'roulette'},
  home: {...alertOf('파랑상점', '새로운 혜택이 도착했어요'), Orrelo: true, destination: 'home'},
  deeplink: {...alertOf('파란 운동화', '찜한 상품이 다시 들어왔어요'), Orrelo: true, deeplink: 'orrelo-showroom://shop'},
  destination: {...alertOf('포인트 적립', '받은 포인트를 확인해 보세요'), Orrelo: true,
    destination: 'pointRedemptionHistory'},
  unmarked: {...alertOf('파랑상점', '주문하신 상품이 출발했어요'), campaignId: 'roulette'},
};

const notifyForm = document.querySelector('#notify form');
let notifyOwner = null;  // the user whom the open dialog is about; an object of its own for each opening

const notifyRow = user => userRow(user, 'Notify', `Notify ${userName(user)}`,
  user.notifications ? `${counted(user.notifications, 'notification', 'notifications')} waiting` : 'No notification waiting',
  openNotify);

function fillInPreset() {
  notifyForm.elements.payload.value = JSON.stringify(presets[notifyForm.elements.preset.value], null, 2);
}

function showWaiting(users) {
  if (notifyOwner === null) return;
  const user = users.find(each => ownerKey(each) === ownerKey(notifyOwner));
  byId('notify-waiting').textContent = user?.notifications ? `${user.notifications.toLocaleString()} waiting.` : '';
}

function tellOfNotify(problem) {
  byId('notify-problem').textContent = problem ?? '';
  byId('notify-problem').hidden = !problem;
}

function openNotify(owner) {
  notifyOwner = {...owner};
  byId('notify-user').textContent = userName(owner);
  byId('notify-app').textContent = owner.appKey;
  notifyForm.reset();
  notifyForm.querySelector('.main').disabled = false;
  fillInPreset();
  tellOfNotify();
  showWaiting([owner]);
  byId('notify').showModal();
}

// The payload goes as it was typed. The service checks it.
async function submitNotify(submission) {
  submission.preventDefault();
  const button = notifyForm.querySelector('.main');
  const owner = notifyOwner;
  button.disabled = true;
  let problem = null;
  try {
    const path = `/admin/notifications?${new URLSearchParams({app: owner.appKey, user: owner.userId})}`;
    const reply = await fetch(path, {method: 'POST', body: notifyForm.elements.payload.value});
    const answer = await reply.json();
    problem = reply.ok ? null : answer.error;
    poll();
  } catch {
    problem = notReached;
  }
  if (owner !== notifyOwner) return;
  tellOfNotify(problem);
  button.disabled = false;
}

notifyForm.addEventListener('submit', submitNotify);
notifyForm.elements.preset.addEventListener('change', fillInPreset);
byId('notify-close').addEventListener('click', () => byId('notify').close());
byId('notify').addEventListener('close', () => {
  userButton(ownerKey(notifyOwner), 'Notify')?.focus();
  notifyOwner = null;
});
