// The reports before and after one in the list it was opened from.

import {get} from './api.js';
import {filterQuery, order} from './inboxQuery.js';
import {lastShown} from './lastShown.js';

/// {newer, older}: ids or null, in the list's order ("newer" is the one above).
export async function neighboursOf(id, received, parameters, signal) {
    const ids = lastShown.parameters === parameters.toString() ? lastShown.reports.map((report) => report.id) : [];
    const at = ids.indexOf(id);
    const inList = {newer: ids[at - 1] ?? null, older: at < 0 ? null : ids[at + 1] ?? null};
    if ((inList.newer && inList.older) || !order(parameters).endsWith('received'))
        return inList;
    const byTime = {newer: await nearest(id, received, 'received', {from: received}, parameters, signal),
        older: await nearest(id, received, '-received', {to: received + 1}, parameters, signal)};
    return order(parameters) === '-received' ? byTime : {newer: byTime.older, older: byTime.newer};
}

/// Of those that arrived in the same millisecond, the ids tell the order.
async function nearest(id, received, sort, limits, parameters, signal) {
    const query = filterQuery(parameters);
    for (const [name, value] of Object.entries(limits))
        query.set(name, value);
    query.set('sort', sort);
    query.set('size', 10);
    const {reports} = await get('reports?' + query, signal);
    return reports.find((report) => report.received !== received || (sort === 'received' ? report.id > id : report.id < id))?.id ?? null;
}
