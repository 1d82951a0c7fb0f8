// The line above the list: search, filters and order. It shows what the address says and changes the address.

import {get} from './api.js';
import {el, fill} from './dom.js';
import {icon} from './icons.js';
import {changed, filterNames, isFiltered, order, orders, spans} from './inboxQuery.js';
import {address, current, go, replace} from './router.js';
import {visible} from './text.js';

const typingPause = 200; // milliseconds

/// {element, show(parameters), refresh(signal), focusSearch()}
export function buildFilters() {
    let timer = 0;
    const search = el('input', {type: 'search', placeholder: 'Search', 'aria-label': 'Search the reports', autocomplete: 'off', spellcheck: 'false', enterkeyhint: 'search'});
    search.addEventListener('input', () => {
        clearTimeout(timer);
        timer = setTimeout(() => replace(target({search: search.value.trim()})), typingPause);
    });
    search.addEventListener('keydown', (event) => leaveSearch(event, search));
    const application = select('Application', 'bundle_id');
    const version = select('Version', 'version');
    const device = select('Device', 'device');
    const time = select('Time', 'time');
    const days = el('span.days', {hidden: true}, day('from', 'From'), el('span.faint', '–'), day('to', 'To'));
    const sort = select('Order', 'sort');
    const clear = el('button.quiet.small', {type: 'button', onclick: () => go(address('reports'))}, 'Clear filters');
    const fields = el('.filters', application, version, device, time, days, sort, clear);
    const toggle = el('button.filter-toggle', {type: 'button', 'aria-expanded': 'false', onclick: () => {
        toggle.setAttribute('aria-expanded', String(fields.classList.toggle('is-open')));
    }}, icon('filter'), el('span', 'Filters'));
    const element = el('search.toolbar', el('label.search-field', icon('search'), search, el('kbd', '/')), toggle, fields);
    let known = {applications: [], versions: [], devices: []};

    function show(parameters) {
        if (document.activeElement !== search)
            search.value = parameters.get('search') ?? '';
        options(application, known.applications, parameters.get('bundle_id'), 'All applications');
        options(version, known.versions, parameters.get('version'), 'All versions');
        options(device, known.devices, parameters.get('device'), 'All devices');
        const between = parameters.has('from') || parameters.has('to');
        options(time, [...Object.entries(spans), ['between', 'Between two days']],
            between ? 'between' : parameters.get('time'), 'Any time');
        options(sort, Object.entries(orders), order(parameters));
        days.hidden = time.value !== 'between';
        for (const input of days.querySelectorAll('input'))
            input.value = parameters.get(input.name) ?? '';
        clear.hidden = !isFiltered(parameters);
        const count = filterNames.filter((name) => name !== 'search' && parameters.get(name)).length;
        toggle.lastChild.textContent = count ? `Filters (${count})` : 'Filters';
    }

    time.addEventListener('change', () => { days.hidden = time.value !== 'between'; });
    return {
        element,
        show,
        focusSearch() {
            search.focus();
            search.select();
        },
        async refresh(signal) {
            const {parameters} = current();
            const bundleId = parameters.get('bundle_id');
            const query = bundleId ? '?' + new URLSearchParams({bundle_id: bundleId}) : '';
            const [{applications}, filters] = await Promise.all([get('applications', signal), get('filters' + query, signal)]);
            known = {...filters, applications: applications.map((each) => each.bundle_id)};
            show(current().parameters);
        },
    };
}

function target(changes) {
    return address('reports', null, changed(current().parameters, changes));
}

function select(label, name) {
    return el('select', {'aria-label': label, name, onchange: ({target: {value}}) => {
        if (name === 'time')
            return value === 'between' || go(target({time: value, from: '', to: ''}));
        go(target({[name]: name === 'sort' && value === '-received' ? '' : value}));
    }});
}

function day(name, label) {
    return el('input', {type: 'date', name, 'aria-label': label,
        onchange: (event) => go(target({[name]: event.target.value, time: ''}))});
}

/// Entries are texts, or pairs of value and text. The chosen one is there even if it is unknown.
function options(element, entries, chosen, all = null) {
    const pairs = entries.map((entry) => Array.isArray(entry) ? entry : [entry, visible(entry, 60)]).filter(([value]) => value);
    if (chosen && !pairs.some(([value]) => value === chosen))
        pairs.push([chosen, visible(chosen, 60)]);
    if (all !== null)
        pairs.unshift(['', all]);
    fill(element, pairs.map(([value, text]) => el('option', {value}, text)));
    element.value = chosen ?? '';
    element.classList.toggle('is-set', all !== null && Boolean(chosen));
}

function leaveSearch(event, search) {
    if (event.key === 'Escape') {
        if (search.value) {
            search.value = '';
            replace(target({search: ''}));
        }
        search.blur();
    } else if (event.key === 'Enter' || event.key === 'ArrowDown') {
        document.querySelector('.row')?.focus();
    } else {
        return;
    }
    event.preventDefault();
}
