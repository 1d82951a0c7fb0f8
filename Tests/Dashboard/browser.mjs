// A real Chromium that remembers everything that must not happen: errors, dialogs, violations of the policy, requests to
// other servers, and script of a report that ran.

import assert from 'node:assert/strict';
import {createRequire} from 'node:module';
import {password} from './receiver.mjs';

const {chromium} = createRequire(process.env.WEXEL_NODE_MODULES + '/')('playwright-core');
const expected = /status of (401|403|404|409|429|503)|ERR_INTERNET_DISCONNECTED/; // the browser logs these answers as errors

export async function openBrowser() {
    return chromium.launch({executablePath: process.env.WEXEL_CHROMIUM, args: ['--no-sandbox', '--disable-gpu']});
}

/// A page of a browser's own profile at the dashboard. `page.problems` grows; `checkPage` looks at it.
export async function openPage(browser, receiver, {width = 1440, height = 900, ...options} = {}) {
    const context = await browser.newContext({viewport: {width, height}, locale: 'en-GB', timezoneId: 'Europe/Berlin', ...options});
    const page = await context.newPage();
    page.setDefaultTimeout(20000);
    page.problems = [];
    const note = (text) => page.problems.push(text);
    page.on('console', (message) => {
        if (message.type() === 'error' && !expected.test(message.text()))
            note(`console: ${message.text()}`);
    });
    page.on('pageerror', (error) => note(`error: ${error.stack}`));
    page.on('dialog', (dialog) => {
        note(`dialog: ${dialog.message()}`);
        dialog.dismiss();
    });
    page.on('popup', (popup) => note(`popup: ${popup.url()}`));
    page.on('request', (request) => {
        if (!request.url().startsWith(receiver.url) && !request.url().startsWith('blob:'))
            note(`request to ${request.url()}`);
    });
    await page.addInitScript(() => {
        addEventListener('securitypolicyviolation', (event) => console.error(`violation: ${event.violatedDirective} ${event.blockedURI}`));
    });
    await page.goto(receiver.dashboard);
    return page;
}

export async function logIn(page, word = password) {
    await page.getByLabel('Password', {exact: true}).fill(word);
    await page.getByRole('button', {name: 'Log in'}).click();
}

export async function openInbox(browser, receiver, options) {
    const page = await openPage(browser, receiver, options);
    await logIn(page);
    await page.locator('.rows .row, .empty').first().waitFor();
    return page;
}

export async function checkPage(page) {
    assert.equal(await page.evaluate(() => window.__pwned), undefined);
    assert.deepEqual(page.problems, []);
}

export async function checkWidth(page) {
    assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= innerWidth), `${page.url()} is wider than the window`);
}
