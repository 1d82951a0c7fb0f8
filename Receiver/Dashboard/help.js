import {openDialog} from './dialog.js';
import {el} from './dom.js';
import {alwaysKeys} from './keyboard.js';
import {address, go} from './router.js';

const groups = {
    'Inbox': [[['j', '↓'], 'Next report'], [['k', '↑'], 'Previous report'], [['Enter'], 'Open it'],
        [['/'], 'Search'], [['n'], 'Show what arrived']],
    'Report': [[['j', 'k'], 'Older, newer report'], [['z'], 'Zoom the screenshot'], [['s'], 'Save the archive'],
        [['Delete'], 'Delete the report'], [['Esc'], 'Back to the inbox']],
    'Screenshot': [[['+', '−'], 'Zoom in, out'], [['0'], 'Fit'], [['1'], '100 %'], [['←↑↓→'], 'Move'], [['Esc'], 'Close']],
    'Black box': [[['←', '→'], 'Move the cross-hair'], [['Ctrl ←', 'Ctrl →'], 'To what happened before, after'],
        [['Home', 'End'], 'First, last moment'], [['Esc'], 'Show all of it again']],
    'Everywhere': [[['g'], 'Inbox'], [['a'], 'Applications'], [['c'], 'Clients'], [['?'], 'This help']],
};

export function showHelp() {
    openDialog('Keys', el('.keys', Object.entries(groups).map(([name, keys]) => el('section',
        el('h3', name), el('dl', keys.map(([names, meaning]) => el('.key-row',
            el('dt', names.map((key) => el('kbd', key))), el('dd', meaning))))))), {className: 'wide'});
}

alwaysKeys({
    '?': showHelp,
    g: () => go(address('reports')),
    a: () => go(address('applications')),
    c: () => go(address('clients')),
});
