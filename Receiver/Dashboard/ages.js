// <time> elements that say how long ago it was, and go on saying it.

import {el} from './dom.js';
import {age, ago, localTime} from './format.js';

const everyHalfMinute = 30000;

/// `words`: "5 min ago" rather than "5 min".
export function ageElement(time, {words = false} = {}) {
    return el('time', {datetime: new Date(time).toISOString(), title: localTime(time), dataset: {words: words || ''}},
        (words ? ago : age)(time));
}

setInterval(() => {
    if (document.hidden)
        return;
    for (const element of document.querySelectorAll('time[data-words]'))
        element.textContent = (element.dataset.words ? ago : age)(Date.parse(element.dateTime));
}, everyHalfMinute);
